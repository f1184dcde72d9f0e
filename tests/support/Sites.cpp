#include "Sites.h"

namespace support {

Site SiteOfRoot(QXJSON::IJsonParser& parser) {
    Site site;
    uint32_t type = 0;
    parser.GetRootItem(&site.handle, &type);
    parser.GetRootValue(&site.reference, &type);
    site.path = L"/";
    return site;
}

Site SiteOfMember(QXJSON::IJsonParser& parser, const wchar_t* key) {
    const Site root = SiteOfRoot(parser);
    Site site;
    uint32_t type = 0;
    parser.GetMemberItem(root.handle, key, &site.handle, &type);
    parser.GetMemberValue(root.reference, key, &site.reference, &type);
    site.path = std::wstring(L"/") + key;
    return site;
}

Arguments At(const Site& site) {
    Arguments arguments;
    arguments.handle = site.handle;
    arguments.reference = site.reference;
    arguments.path = site.path.c_str();
    return arguments;
}

Arguments AtMember(const Operation& operation, const Site& root, const Site& member,
                   const wchar_t* key) {
    Arguments arguments = At(operation.hasKey ? root : member);
    arguments.key = key;
    return arguments;
}

uint32_t NextHandle(QXJSON::IJsonParser& parser, const wchar_t* freshPath) {
    uint32_t handle = 0;
    parser.GetItemByPath(freshPath, &handle);
    return handle;
}

}  // namespace support
