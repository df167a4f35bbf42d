#pragma once

#include "core/scriptedprompts.h"

namespace Velmora::Tests {

// The library's public answerer, under the name the tests use.
using ScriptedPrompts = Velmora::Framework::ScriptedPrompts;

} // namespace Velmora::Tests
