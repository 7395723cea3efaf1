#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "runtime/numbers.h"

namespace rotavel {

// Keeps one family of objects (windows, gadgets, menus, ...) under small numbers that the
// application chooses, or under automatic numbers. Not for looking objects up by anything else.
template <typename Record>
class NumberedObjects {
  public:
    // Makes a record under `number` (0 and up), or under its own address for AnyNumber. The number
    // must be free. Returns the number and the record; the record is null for any other number.
    std::pair<std::int64_t, Record*> Create(std::int64_t number) {
        if (number < AnyNumber || Find(number) != nullptr) {
            return {number, nullptr};
        }
        auto record = std::make_unique<Record>();
        Record* const made = record.get();
        if (number == AnyNumber) {
            number = static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(made));
        }
        records.emplace(number, std::move(record));
        return {number, made};
    }

    // The record of a number, or null when that number is not open.
    Record* Find(std::int64_t number) const {
        const auto found = records.find(number);
        return found == records.end() ? nullptr : found->second.get();
    }

    // Frees one record; does nothing when the number is not open.
    void Remove(std::int64_t number) { records.erase(number); }

    void Clear() { records.clear(); }

    // Calls visit(number, record) for each record that is there when its turn comes, lowest number
    // first; records may come and go meanwhile.
    template <typename Visit>
    void ForEach(Visit visit) const {
        for (auto next = First(); next.second != nullptr; next = After(next.first)) {
            visit(next.first, *next.second);
        }
    }

    // The lowest open number and its record, and the next one above a number; a null record when
    // there is none. For those who may stop before the last.
    std::pair<std::int64_t, Record*> First() const { return After(AnyNumber); }
    std::pair<std::int64_t, Record*> After(std::int64_t number) const {
        const auto found = records.upper_bound(number);
        if (found == records.end()) {
            return {AnyNumber, nullptr};
        }
        return {found->first, found->second.get()};
    }

  private:
    std::map<std::int64_t, std::unique_ptr<Record>> records;
};

}  // namespace rotavel
