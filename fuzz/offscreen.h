// The Qt application that a fuzzer runs in, without a screen.
// Not here: what it is fed.
#pragma once

#include <QApplication>

#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(*argc, *argv);  // for as long as the process lives
    return 0;
}
