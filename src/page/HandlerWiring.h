#pragma once

#include <QWidget>

namespace gazetteer {

/// Connects each slot of the form that is named CONTROL_Event with the event of the control of that
/// name: Click of buttons, check boxes, option buttons and lists, Change of text boxes and
/// drop-down lists, ItemCheck of lists with check boxes, Paint of previews. Of a pair of option
/// buttons the one that was chosen tells its index. Events come as well when code changes a
/// control.
///
/// Fails for a slot without a control, so that no handler can be left unconnected by a slip of the
/// pen.
void ConnectHandlers(QWidget& form);

}  // namespace gazetteer
