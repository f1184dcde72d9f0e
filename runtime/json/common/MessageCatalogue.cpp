#include "MessageCatalogue.h"

namespace QXJSON {
namespace {

/// The language of the process. Nothing changes it; a build that wants another language starts it
/// with that language's number.
int languageNumber = kEnglish;

class Catalogue {
public:
    Catalogue() : table(MessagesOf(languageNumber)) {}

    const wchar_t* Text(int code) const {
        return code >= 0 && code < kMessageCount ? table[code] : L"";
    }

private:
    const MessageTable& table;
};

}  // namespace

const wchar_t* LookUpMessage(int code) {
    static const Catalogue catalogue;
    return catalogue.Text(code);
}

}  // namespace QXJSON
