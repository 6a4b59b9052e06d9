// What most tests include.
#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <stdexcept>

#include "Product.h"
