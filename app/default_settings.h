#pragma once

#include <string_view>

namespace rotavel {

// The settings file that is written when there is none: an empty [Settings] group and 59
// motorcycles. 17404 bytes of ASCII with CR LF line ends and no byte-order mark, to be written as
// they stand. Formed by the compiler, so a start that does not need it does not pay for it.
extern const std::string_view DefaultSettingsText;

}  // namespace rotavel
