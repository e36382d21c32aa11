#include <QCoreApplication>
#include <cstdlib>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The settings of whoever runs the tests are neither read nor changed.
    ::setenv("GSETTINGS_BACKEND", "memory", 1);
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
