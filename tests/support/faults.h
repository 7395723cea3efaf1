#pragma once

#include <functional>
#include <string>

namespace rotavel::tests {

// Calls of this program to the system or for memory that fail: those of one kind, numbered from 1
// on. A test program links the library "faults" for this.
struct Faults {
    char Call;  // F(allocate), R(ead), W(rite), S(ync), T(runcate) or Memory
    int First;
    int Last;
    int Error;  // a value of errno, or Half for doing half of what they are asked for

    static constexpr char Memory = 'M';
    static constexpr int Half = 0;
    static constexpr int Always = 1 << 30;

    // What an action returns while those calls fail.
    bool During(const std::function<bool()>& action) const;

    // Whether a call failed during the last action, and the letters of its calls to the system that
    // were not interrupted.
    static bool HaveStruck();
    static std::string Trace();
};

}  // namespace rotavel::tests
