// Message dialogs as windows of the system.
#pragma once

#include <qxTools/painting/MessageDialog.h>

namespace qxTools::desktop {

class Win32Dialogs final : public DialogService {
 public:
  std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType type,
                                                     TDialogButtons buttons) override;
};

}  // namespace qxTools::desktop
