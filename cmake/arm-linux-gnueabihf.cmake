# Debian's cross compiler for 32-bit little-endian Arm (package g++-arm-linux-gnueabihf). What is built
# runs here under qemu (package qemu-user).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CXX_FLAGS_INIT -mthumb)
# 32-bit Arm has pages of 4 KiB; the linker's 64 KiB would be padding in the file.
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,-z,max-page-size=4096)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L /usr/arm-linux-gnueabihf)
