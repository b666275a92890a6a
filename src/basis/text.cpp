#include "basis/text.h"
