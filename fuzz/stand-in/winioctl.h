// Marlux 3. Raw disks for the native build: there are none.
#pragma once

#include <windows.h>

struct GET_LENGTH_INFORMATION {
  LARGE_INTEGER Length;
};
inline constexpr DWORD IOCTL_DISK_GET_LENGTH_INFO = 0x7405C;
inline BOOL DeviceIoControl(HANDLE, DWORD, void*, DWORD, void*, DWORD, DWORD*, void*) {
  return FALSE;
}
