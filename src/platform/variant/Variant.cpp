#include "platform/variant/Variant.h"
