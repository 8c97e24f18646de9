// SPDX-License-Identifier: MIT
#include "test_case.h"

int main(int argc, char** argv) { return Vela::Test::runTests(argc, argv); }
