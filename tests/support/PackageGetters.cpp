#include "PackageGetters.h"

namespace support {

Answer Ask(const Operation& getter, QXJSON::IJsonPackage& package, const wchar_t* key) {
    Arguments arguments;
    arguments.key = key;
    return getter.call(package, arguments);
}

Answer PackageAnswerFor(const Operation& getter, const Sample& sample) {
    if (getter.asks == Asks::kExistence) return {1, {L"1"}};
    const Answer answer = ExpectedAnswer(getter, sample, {}, {});
    return answer.result == 1 ? answer : PackageFailure(getter, answer.result);
}

Answer PackageFailure(const Operation& getter, int result) {
    if (getter.asks == Asks::kAnyText) return {result, {L""}};
    if (getter.asks == Asks::kExistence) return {result, {L"0"}};
    return result;
}

}  // namespace support
