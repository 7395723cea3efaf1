#pragma once

namespace rotavel {

// Closes the open requester, if there is one, without an answer.
void DismissMessageBox();

}  // namespace rotavel
