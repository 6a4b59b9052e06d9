#pragma once

#include <QWidget>
#include <string>

/// What a control shows, whatever its kind.
namespace gazetteer {

/// The control of that name, or the first of its pair of option buttons; must be there.
QWidget& ControlNamed(const QWidget& form, const std::string& name);

/// A check box; or a pair of option buttons, of which the first stands for true.
void ShowFlag(const QWidget& form, const std::string& control, bool value);
bool ShownFlag(const QWidget& form, const std::string& control);

/// A text box, or a drop-down list, which shows no selection for a text that it does not offer and
/// keeps it until one is made.
void ShowText(const QWidget& form, const std::string& control, const std::string& text);
std::string ShownText(const QWidget& form, const std::string& control);

}  // namespace gazetteer
