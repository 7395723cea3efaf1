#pragma once

#include <cstddef>
#include <string>

namespace rotavel::tests {

// Lets calls of this program to the system or for memory fail, while the object lives. A test
// program links the library "faults" for this.
class Faults {
  public:
    // The calls of one kind, numbered from 1 from the object's making on, that fail with a value of
    // errno. `Half` lets them do half of what they are asked for instead.
    struct Plan {
        char Call;  // F(allocate), R(ead), W(rite), S(ync), T(runcate) or Memory
        int First;
        int Last;
        int Error;
    };
    static constexpr char Memory = 'M';
    static constexpr int Half = 0;
    static constexpr int Always = 1 << 30;

    explicit Faults(const Plan& plan);
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;
    ~Faults();

    // Whether a call has failed yet.
    bool HaveStruck() const;

    // The letters of the calls to the system so far that were not interrupted.
    static std::string Trace();
};

}  // namespace rotavel::tests
