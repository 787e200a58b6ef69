// How the transcript of the scripted desktop tells what changed in a control.
#pragma once

#include <string>

#include "platform/control.h"

namespace quarvel::platform {

// " value: true", " current: 3" and the like: what follows the control's name.
std::string ScriptedWords(const Control& control, Change change);

}  // namespace quarvel::platform
