// The chooser of files, with the titles, types and checks of each purpose.
#pragma once

#include <string>

#include "files/filechooser.h"

class QWidget;

namespace tarnwick {

/// Asks for a file over `parent` and checks the name; what must be asked is asked. Empty when the user gives up.
std::string ChooseFile(QWidget& parent, Table& t, FilePurpose purpose);

}  // namespace tarnwick
