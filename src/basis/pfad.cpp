#include "basis/pfad.h"
