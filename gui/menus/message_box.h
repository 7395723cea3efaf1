#pragma once

namespace rotavel {

// Closes every open requester without an answer.
void DismissMessageBoxes();

}  // namespace rotavel
