#include "linearAlgebra/LA_Object.h"

LA_Object::LA_Object()
{
    COM_TYPE(LA_Object);
}
