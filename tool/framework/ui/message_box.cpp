#include "tool/framework/ui/message_box.h"

#include "tool/framework/platform.h"

int AfxMessageBox(const char *text, UINT type) {
  return framework::platform().show_message({text ? text : "", "", type});
}
