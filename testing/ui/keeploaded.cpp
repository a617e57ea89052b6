// SPDX-License-Identifier: MIT
// Replaces the C library's dlclose() in a test program. The leak checker recognizes leaks of the
// OpenGL driver by the driver's file name, which is lost when the driver is unloaded.

extern "C" __attribute__((visibility("default"))) int dlclose(void *)
{
    return 0;
}
