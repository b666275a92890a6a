#include "basis/zahl.h"
