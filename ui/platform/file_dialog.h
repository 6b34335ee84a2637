// The file dialogs of the system: Windows' own there, the toolkit's elsewhere.
#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "core/desktop.h"

namespace orvane {

// The name with the default extension, unless it ends in it already, case ignored.
std::string WithExtension(const std::string& path, const std::string& extension);

// One text and pattern of a filter such as "CAM Files|*.xov" for the toolkit: what the list of file
// types shows, "CAM Files (*.xov)", the pattern added where the text doesn't show it already; then
// the patterns that are looked for, "(*.xov *.XOV)".
std::string ToolkitFilter(const std::string& filter);

enum class DialogForm { Open, Save };

// Shows the dialog; none when it was cancelled. The extension is settled before the question about
// overwriting, which is asked about the final name. In the open form without FileMustExist a new
// name may be typed. A file that must exist may also be one without the extension, if its name with
// it doesn't exist. The dialog starts in InitialFolder, else in the folder of the file last chosen
// under the same title, else in FirstFolder, else in the current one.
std::optional<std::string> AskForFile(const FileDialog& dialog, DialogForm form, QWidget* parent);

}  // namespace orvane
