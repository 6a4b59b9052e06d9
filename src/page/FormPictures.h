#pragma once

namespace gazetteer {

/// Makes the pictures of the form's description known; before the form is set up. A static library
/// does not do this by itself.
void LoadFormPictures();

}  // namespace gazetteer
