// The captions of message dialogs' buttons, for every host.
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

}  // namespace qxTools::desktop
