#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "IJsonParser.h"

namespace support {

/// All that a caller can see of a load: its result, what the error queries say and what the
/// document became.
struct LoadOutcome {
    int result;
    int code;  ///< told by the message's text
    uint64_t offset;
    std::wstring tree;  ///< the JSON text of the root; empty when there is no document
};

bool operator==(const LoadOutcome& a, const LoadOutcome& b);
std::ostream& operator<<(std::ostream& out, const LoadOutcome& outcome);

LoadOutcome Success(const std::wstring& tree);
LoadOutcome Failure(int code, uint64_t offset);
/// A load that the guard ended: nothing was recorded and there is no document.
LoadOutcome Escaped();

/// What a load that returned `result` left in the parser. Fails the test when HasError disagrees
/// with the message or when one of the queries fails.
LoadOutcome OutcomeOf(QXJSON::IJsonParser& parser, int result);

/// The JSON text of the parser's root object or array; empty when there is no document.
std::wstring TreeOf(QXJSON::IJsonParser& parser);

}  // namespace support
