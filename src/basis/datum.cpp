#include "basis/datum.h"
