// Precompiled: what nearly every form includes.
#pragma once

#include <QtWidgets>
