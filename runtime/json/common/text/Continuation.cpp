#include "Continuation.h"

namespace QXJSON {
namespace {

/// What leads to a place in the innermost container, or at the root.
struct Step {
    std::string_view text;
    size_t events;
};

constexpr Step kOpenObject = {"{", 1};
constexpr Step kOpenArray = {"[", 1};
constexpr Step kToValue = {"\"\":", 1};
constexpr Step kIntoText = {"\"", 0};
constexpr Step kBehindText = {"\"\"", 1};
constexpr Step kBehindMember = {"\"\":\"\"", 2};
constexpr Step kToNextMember = {"\"\":\"\",", 2};
constexpr Step kToNextElement = {"\"\",", 1};

}  // namespace

LeadingText::LeadingText(const ReaderState& state) {
    const auto add = [this](const Step& step) {
        text.insert(text.end(), step.text.begin(), step.text.end());
        events += step.events;
    };
    bool inObject = false;
    for (size_t i = 0; i < state.depth; ++i) {
        if (inObject) add(kToValue);
        inObject = state.open[i].isObject;
        add(inObject ? kOpenObject : kOpenArray);
    }
    const bool hasBefore = state.depth > 0 && state.open[state.depth - 1].count > 0;
    switch (state.awaited) {
        case Awaited::kValue:
            if (inObject) add(kToValue);
            hasStandIn = !inObject && hasBefore;
            if (hasStandIn) add(kToNextElement);
            break;
        case Awaited::kKey:
            hasStandIn = hasBefore;
            if (hasStandIn) add(kToNextMember);
            break;
        case Awaited::kInValue:
            if (inObject) add(kToValue);
            add(kIntoText);
            break;
        case Awaited::kInKey:
            add(kIntoText);
            break;
        case Awaited::kColon:
            add(kBehindText);
            break;
        case Awaited::kFollower:
            hasStandIn = hasBefore;
            add(inObject ? kBehindMember : kBehindText);
            break;
    }
    text.push_back(0);
}

bool ContinuedDocument::Passes() {
    if (ahead == 0) return false;
    --ahead;
    return true;
}

bool ContinuedDocument::Opens() {
    ++depth;
    return Passes();
}

rapidjson::SizeType ContinuedDocument::Before() {
    const bool wasOpen = depth == open;
    --depth;
    if (!wasOpen) return 0;
    const bool isInnermost = open == state.depth;
    const Size count = state.open[--open].count;
    return lead.hasStandIn && isInnermost ? count - 1 : count;
}

bool ContinuedDocument::EndText(std::wstring_view rest) {
    text += rest;
    const bool goesOn = document.String(text.data(), static_cast<Size>(text.size()), true);
    text.clear();
    return goesOn;
}

}  // namespace QXJSON
