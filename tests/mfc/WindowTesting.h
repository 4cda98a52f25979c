// What the tests of windows share.
#pragma once

#include <afxwin.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>
