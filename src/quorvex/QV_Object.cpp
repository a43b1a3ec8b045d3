#include "quorvex/QV_Object.h"

QV_Object::QV_Object()
{
    COM_TYPE(QV_Object);
}
