// What most tests of widgets include.
#pragma once

#include <QTest>

#include "ProductQt.h"
#include "Tests.h"
