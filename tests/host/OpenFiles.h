#pragma once

#include "WindowsTypes.h"

namespace host {

/// How a file is to be opened. The access is made of the bits that sharing grants: FILE_SHARE_READ,
/// FILE_SHARE_WRITE, FILE_SHARE_DELETE.
struct OpenRequest {
    DWORD access;
    DWORD share;
    bool create;  ///< makes the file where there is none, and empties it where there is one
};

/// Opens a file as Windows would; its descriptor, or -1. A folder does not open, neither does a
/// read-only file for writing, nor what somebody in this process has open and does not share.
int OpenShared(const wchar_t* name, const OpenRequest& request);

}  // namespace host
