// Names of files and folders.
#pragma once

#include <string>
#include <string_view>

namespace tarnwick {

/// The folder of a user's standing files, from three variables of the environment (empty when not set): TARNWICK_HOME
/// itself, else tarnwick in XDG_DATA_HOME, else .local/share/tarnwick in HOME. Empty when none says.
std::string UserFolder(std::string_view tarnwickHome, std::string_view xdgDataHome, std::string_view home);

/// `name` in `folder`; the name itself when it has a folder of its own or `folder` is empty.
std::string PathIn(const std::string& folder, const std::string& name);

/// The name behind the last of ":", "\" and "/".
std::string ShortName(const std::string& path);

/// Whether `path` leads to a file: no folder, no device.
bool IsFile(const std::string& path);

/// When the file was changed last, in local time: "2024-12-31 23:59:59"; empty when there is none.
std::string FileDateText(const std::string& path);

}  // namespace tarnwick
