#pragma once

#include <QWidget>
#include <span>

#include "typesetting/KeyControl.h"

namespace gazetteer {

/// A widget of boxes, one for each group of settings, with the controls in their order and labels
/// beside those that do not label themselves.
QWidget* NewSettingBoxes(std::span<const KeyControl> controls, QWidget* parent);

}  // namespace gazetteer
