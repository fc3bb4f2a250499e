#include <gtest/gtest.h>

#include <QApplication>

#include "support/Program.h"

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    PrepareTestProcess();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
