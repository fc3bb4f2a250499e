#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char **argv) {
    setenv("THORNWELL_PROGRAM_DIR", STAND_IN_TOOLSUITES, 1);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
