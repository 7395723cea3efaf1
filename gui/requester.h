#pragma once

#include <cstdint>
#include <string_view>

namespace rotavel {

// Buttons and icon of a message. Without a button flag there is a single "OK", without an icon flag
// the information icon.
inline constexpr std::uint32_t MessageYesNo = 1;
inline constexpr std::uint32_t MessageYesNoCancel = 2;
inline constexpr std::uint32_t MessageInformation = 4;
inline constexpr std::uint32_t MessageError = 8;
inline constexpr std::uint32_t MessageWarning = 16;  // wins over information, that over error

// Answers.
inline constexpr std::int64_t MessageAnswerOk = 0;
inline constexpr std::int64_t MessageAnswerCancel = 2;
inline constexpr std::int64_t MessageAnswerYes = 6;
inline constexpr std::int64_t MessageAnswerNo = 7;

// Shows a title line and a text in a modal box and waits for the user's answer; events wait in the
// queue meanwhile. Both are plain text; what is longer than the screen scrolls. Return presses the
// first button, Escape and the close box the last: "OK" or "Cancel", and nothing where there is
// neither. Returns the answer, 0 for "OK" and when a signal to end the program dismissed the box.
//
// Timers, filters and bindings run meanwhile. They may wait, open another requester, which is
// answered first, and close windows, also the one under the box. Then the window that had the
// keyboard gets it back if it is still there. To be called from anywhere, callbacks too.
std::int64_t MessageRequester(std::u16string_view title, std::u16string_view text,
                              std::uint32_t flags = 0);

}  // namespace rotavel
