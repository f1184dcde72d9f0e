#pragma once

#include <string>
#include <vector>

namespace support {

struct TestDocument {
    std::wstring name;
    std::string bytes;
};

/// The documents in a folder of the data folder, which the environment variable JSON_TEST_DATA
/// names; none where there is no such folder.
std::vector<TestDocument> DocumentsIn(const std::wstring& subfolder);

/// A document with something of everything, of about a megabyte.
std::string LargeDocument();

}  // namespace support
