#include "linearAlgebra/LA_Object.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr unsigned long alwaysCredible = 1000000; ///< Values that may be missing in a file.

}

LA_Object::LA_Object()
{
    COM_TYPE(LA_Object);
}

bool LA_Object::isCredibleSize(unsigned long lines, unsigned long columns,
                               unsigned long stored) const
{
    const unsigned long limit = std::max(stored, alwaysCredible);
    if (columns == 0 || lines <= limit / columns) {
        return true;
    }
    std::cout << "size " << lines << " x " << columns << " of " << getClassName()
              << " is too large for its values: ignored.\n";
    return false;
}
