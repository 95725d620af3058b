// The buttons of message dialogs, for every host: their captions, and which one the Enter key presses.
#pragma once

#include <qxTools/painting/MessageDialog.h>

namespace qxTools::desktop {

/// A caption in two languages; "&" precedes the letter that presses the button.
struct ButtonCaption {
  const char* english;
  const char* chinese;  ///< Traditional Chinese in code page 950
};

/// Returns the captions of one button.
const ButtonCaption& CaptionOf(TDialogButton button);

/// Returns the button that the Enter key presses at first: OK, Yes or Retry, the first of these that there
/// is. Returns 0 if there is none.
TDialogButtons DefaultButton(TDialogButtons buttons);

}  // namespace qxTools::desktop
