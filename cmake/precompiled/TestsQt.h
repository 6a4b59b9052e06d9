// What most tests of widgets include.
#pragma once

#include "ProductQt.h"
#include "Tests.h"
