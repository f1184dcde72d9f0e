#include "MessageCatalogue.h"

#include <atomic>

namespace QXJSON {
namespace {

/// The language of the process. Nothing changes it; a build that wants another language starts it
/// with that language's number.
int languageNumber = kEnglish;

/// The table in use; null until the first request. Two threads that ask first at the same time
/// store the same pointer.
std::atomic<const MessageTable*> messages{nullptr};

}  // namespace

const wchar_t* LookUpMessage(int code) {
    const MessageTable* table = messages.load(std::memory_order_relaxed);
    if (!table) messages.store(table = &MessagesOf(languageNumber), std::memory_order_relaxed);
    return code >= 0 && code < kMessageCount ? (*table)[code] : L"";
}

}  // namespace QXJSON
