// Message dialogs as Qt windows.
#pragma once

#include <qxTools/painting/MessageDialog.h>

namespace qxTools::desktop {

class QtDialogs final : public DialogService {
 public:
  std::unique_ptr<MessageDialog> CreateMessageDialog(std::string_view message, TDialogType type,
                                                     TDialogButtons buttons) override;
};

}  // namespace qxTools::desktop
