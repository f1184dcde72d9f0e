#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace record {

/// How many bytes can be read from an address on; no more than asked for.
size_t ReadableBytes(const void* address, size_t wanted);
/// Whether all bytes of a place can be written.
bool IsWritable(const void* address, size_t size);

/// What is at an address, however it is aligned.
template <class T>
T Load(const void* address) {
    T value;
    std::memcpy(&value, address, sizeof value);
    return value;
}

/// The bits of a number, extended by zeros.
template <class T>
uint64_t BitsOf(T value) {
    uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof value);
    return bits;
}

/// Keeps what GetLastError() returns, for the life of the object: the host may ask for it.
class KeptLastError {
public:
    KeptLastError() : error(GetLastError()) {}
    ~KeptLastError() { SetLastError(error); }
    KeptLastError(const KeptLastError&) = delete;
    KeptLastError& operator=(const KeptLastError&) = delete;

private:
    DWORD error;
};

/// A lock that is always held for a short time only.
class Lock {
public:
    explicit Lock(SRWLOCK& lock) : lock(lock) { AcquireSRWLockExclusive(&lock); }
    ~Lock() { ReleaseSRWLockExclusive(&lock); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    SRWLOCK& lock;
};

}  // namespace record
