#pragma once

#include <string>

#include "peers/JsonDll.h"

namespace bench {

/// A keyed store.
class DllPackage {
public:
    static constexpr const char* kName = "Json_Dll";

    void LoadText(const std::wstring& text) {
        Expect(package->LoadString(text.c_str()), "LoadString");
    }
    void Clear() { Expect(package->RemoveAll(), "RemoveAll"); }
    void Set(const std::wstring& key, double number) {
        Expect(package->SetValueNumber(key.c_str(), number), "SetValueNumber");
    }
    double Get(const std::wstring& key) {
        double number = 0;
        Expect(package->GetValueNumber(key.c_str(), &number), "GetValueNumber");
        return number;
    }
    bool Contains(const std::wstring& key) {
        bool found = false;
        package->ContainsKey(key.c_str(), &found);
        return found;
    }
    void Remove(const std::wstring& key) { Expect(package->RemoveKey(key.c_str()), "RemoveKey"); }
    size_t Count() {
        uint32_t count = 0;
        Expect(package->GetKeyCount(&count), "GetKeyCount");
        return count;
    }

protected:
    hosting::Package package = TheLibrary().NewPackage().Get();
};

}  // namespace bench
