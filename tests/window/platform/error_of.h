#pragma once

#include "tests/support/error_of.h"
