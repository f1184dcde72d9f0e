#include "WindowsHandles.h"

#include <fcntl.h>
#include <unistd.h>

#include "WindowsThreads.h"

BOOL CloseHandle(HANDLE handle) {
    host::ForgetThread(handle);
    return close(host::DescriptorOf(handle)) == 0;
}

BOOL GetHandleInformation(HANDLE handle, DWORD* flags) {
    *flags = 0;
    return fcntl(host::DescriptorOf(handle), F_GETFD) != -1;
}
