#include "basis/ansi.h"
