// The user's resources: defaults, the file ".yxrc" and the environment variables with the prefix "YX_", each
// over the one before.
//
// A line of the file is "<word>.<group>.<key>: <value>", where the first word is not looked at and the group
// may be left out. A line that isn't of this form, or whose key nobody knows, is passed over.
//
// The one resource that acts on this tool's run is YX_DEFAULT: it changes the working directory.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/stream.h"
#include "runtime/user_settings.h"

namespace ozmo {

struct Runtime;

struct UserResources {
  bool initialised = false;
  UserSettings settings;
};

// Defaults on first use, then the file called `name`, then the environment. Without a file it ends there, and
// the environment has only been read as the last step of the defaults. With one the variables act twice, so
// a relative YX_DEFAULT is applied twice. Returns 1 if a file was read, else 0.
int UserResourcesRead(UserResources& resources, Runtime& runtime, const std::string& name);

// Sets every setting to its default, then takes the environment's values.
void UserResourceDefaults(UserResources& resources, Runtime& runtime);

// Each YX_ variable that is set replaces its setting. A YX_DEFAULT that can't be changed to is reported as
// INVLD_DIR, and the run goes on.
void UserResourceEnvironment(UserResources& resources, Runtime& runtime);

// Opens `name` in the current directory, else in the directory of the variable `envName` or HOME, else in the
// library directory. Null if there is none.
Stream UserResourceFileOpen(Runtime& runtime, const std::string& name, const std::string& envName);

// One line of the file, cut in its parts; keys and groups in lower case.
struct ResourceLine {
  std::optional<std::string> group;
  std::string key;
  std::string value;
};

// Absent if the line has no value or no key.
std::optional<ResourceLine> ParseResourceLine(std::string_view line);

// Gives the row's setting a value, by the rule of its kind.
void UserResourceSet(UserSettings& settings, const ResourceRow& row, const std::string& value);

}  // namespace ozmo
