#include "OpenFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <mutex>

#include "FileNames.h"
#include "WindowsFiles.h"

namespace host {
namespace {

/// A file that was opened here. It may have been closed since, by anybody who had its descriptor.
struct Use {
    dev_t device;
    ino_t number;
    DWORD access;
    DWORD share;
};

bool IsFile(const Use& use, const struct stat& file) {
    return use.device == file.st_dev && use.number == file.st_ino;
}

/// Whether a use goes on: its file is still what the descriptor stands for.
bool GoesOn(int descriptor, const Use& use) {
    struct stat file = {};
    return fstat(descriptor, &file) == 0 && IsFile(use, file);
}

bool Agree(const Use& use, const OpenRequest& request) {
    return (request.access & ~use.share) == 0 && (use.access & ~request.share) == 0;
}

class Uses {
public:
    /// Enters a use, in place of an earlier one of the descriptor, unless another rules it out.
    bool Enter(int descriptor, const struct stat& file, const OpenRequest& request) {
        const std::lock_guard lock(mutex);
        uses.erase(descriptor);
        for (const auto& [other, use] : uses)
            if (IsFile(use, file) && !Agree(use, request) && GoesOn(other, use)) return false;
        uses[descriptor] = {file.st_dev, file.st_ino, request.access, request.share};
        return true;
    }

private:
    std::map<int, Use> uses;
    std::mutex mutex;
};

Uses& AllUses() {
    static Uses uses;
    return uses;
}

int ModeOf(const OpenRequest& request) {
    const bool writes = (request.access & FILE_SHARE_WRITE) != 0;
    const bool reads = (request.access & FILE_SHARE_READ) != 0;
    const int mode = !writes ? O_RDONLY : reads ? O_RDWR : O_WRONLY;
    return mode | O_CLOEXEC | (request.create ? O_CREAT : 0);
}

bool MayOpen(int descriptor, const OpenRequest& request) {
    constexpr DWORD kChanges = FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    struct stat file = {};
    if (fstat(descriptor, &file) != 0 || !S_ISREG(file.st_mode)) return false;
    if ((request.access & kChanges) != 0 && (file.st_mode & S_IWUSR) == 0) return false;
    return AllUses().Enter(descriptor, file, request);
}

}  // namespace

int OpenShared(const wchar_t* name, const OpenRequest& request) {
    const int descriptor = open(ToHostName(name).c_str(), ModeOf(request), 0644);
    if (descriptor == -1) return -1;
    // Only now, for nobody's file is emptied before it is known to be free.
    if (MayOpen(descriptor, request) && (!request.create || ftruncate(descriptor, 0) == 0))
        return descriptor;
    close(descriptor);
    return -1;
}

}  // namespace host
