#include "Reduce.h"

#include <algorithm>
#include <set>

#include "OperationTable.h"

namespace replay {
namespace {

void AddReferences(const RecordHeader* record, std::set<uint32_t>& objects) {
    Values values(record);
    for (Value value = values.Next(); value.tag != Tag::kEnd; value = values.Next())
        if (value.tag == Tag::kReference) objects.insert(value.object);
}

/// The objects that a call and those inside it have to do with.
void AddObjects(const Calls& calls, uint32_t index, std::set<uint32_t>& objects) {
    const Call& call = calls.all[index];
    objects.insert(call.Object());
    AddReferences(call.begin, objects);
    for (uint32_t inside = call.firstInside; inside != kNone; inside = calls.all[inside].next)
        AddObjects(calls, inside, objects);
}

bool HaveCommon(const std::set<uint32_t>& a, const std::set<uint32_t>& b) {
    return std::any_of(a.begin(), a.end(), [&](uint32_t object) { return b.count(object) > 0; });
}

bool Renews(const Call& call) {
    const Operation* const operation = OperationOf(*call.begin);
    return operation && operation->renews;
}

}  // namespace

Reduction::Reduction(const Session& session, Difference difference)
    : session(session), calls(session.calls), difference(std::move(difference)) {
    last = this->difference.call;
    while (calls.all[last].around != kNone) last = calls.all[last].around;
}

bool Reduction::Shows(const std::vector<uint32_t>& wanted) {
    if (IsExhausted()) return false;
    Player player(session);
    for (const uint32_t call : wanted) {
        player.Play(call);
        if (!player.differences.empty()) break;
    }
    --left.times;
    left.calls -= std::min(left.calls, player.played + player.skipped);
    // The same one and no other: the calls before it still have the answers that are in the log.
    return !player.differences.empty() && player.differences.front().call == difference.call &&
           player.differences.front().what == difference.what;
}

/// The calls up to the last whose objects have to do with those of the last; only those since the
/// last new document of each object, if that is asked for.
std::vector<uint32_t> Reduction::Related(bool sinceRenewal) const {
    std::set<uint32_t> objects;
    AddObjects(calls, last, objects);
    const auto end = std::upper_bound(calls.outer.begin(), calls.outer.end(), last);
    // What an object had from another one may be any number of calls ago.
    for (size_t before = 0; before != objects.size();) {
        before = objects.size();
        for (auto outer = calls.outer.begin(); outer != end; ++outer) {
            std::set<uint32_t> its;
            AddObjects(calls, *outer, its);
            if (HaveCommon(its, objects)) objects.insert(its.begin(), its.end());
        }
    }
    std::vector<uint32_t> related;
    std::set<uint32_t> renewed;
    for (auto outer = end; outer != calls.outer.begin();) {
        const Call& call = calls.all[*--outer];
        if (objects.count(call.Object()) == 0) continue;
        const bool isOld = renewed.count(call.Object()) > 0 && !call.IsFactory();
        if (sinceRenewal && isOld) continue;
        related.push_back(*outer);
        if (Renews(call)) renewed.insert(call.Object());
    }
    std::reverse(related.begin(), related.end());
    return related;
}

/// Leaves out what is not needed: halves, then quarters, down to single calls. The last one stays.
void Reduction::Shorten(std::vector<uint32_t>& wanted) {
    for (size_t piece = wanted.size() / 2; piece > 0 && !IsExhausted();) {
        bool shorter = false;
        for (size_t at = wanted.size() - 1; at > 0 && !IsExhausted();) {
            const size_t count = std::min(piece, at);
            at -= count;
            std::vector<uint32_t> without = wanted;
            const auto begin = without.begin() + static_cast<ptrdiff_t>(at);
            without.erase(begin, begin + static_cast<ptrdiff_t>(count));
            if (!Shows(without)) continue;
            wanted = std::move(without);
            shorter = true;
        }
        if (piece > 1 || !shorter) piece /= 2;
    }
}

std::vector<uint32_t> Reduction::Find(Effort effort) {
    left = effort;
    for (const bool sinceRenewal : {true, false}) {
        std::vector<uint32_t> wanted = Related(sinceRenewal);
        if (!Shows(wanted)) continue;
        Shorten(wanted);
        return wanted;
    }
    const auto end = std::upper_bound(calls.outer.begin(), calls.outer.end(), last);
    return {calls.outer.begin(), end};
}

}  // namespace replay
