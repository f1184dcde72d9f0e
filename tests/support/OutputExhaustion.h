#pragma once

namespace support {

/// Has the DLL run out of memory in a way in which it can still return: the C++ runtime allocates
/// once for a thread's first exception and once for the reserve that it draws exceptions from when
/// there is no memory. A test that leaves no memory at all, or counts blocks, calls this first. No
/// FailingAllocations may exist at that time.
void PrepareForExhaustion();

}  // namespace support
