// Values of property writes between their two forms: a host's VARIANT and the model's Variant.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include "automation/variant_holder.h"
#include "model/variant.h"

namespace quarvel::automation {

// The locale of every conversion: English, whatever the user's settings, so that a script's "1.5"
// means the same everywhere.
inline constexpr LCID kConversionLocale = 0x409;

// The variant behind a chain of variants that are passed by reference; it may still refer to a
// plain value. Null when the chain ends nowhere.
VARIANT* Dereference(VARIANT* variant);

// A copy of the value with every reference followed. Raises 13 when there is nothing to copy.
VariantHolder CopyValue(VARIANT* variant);

// What a host wants a model's number, or a model's text, to become. What has no such form (an
// array, an object without a value) is Null, which the model refuses with 13 where it converts.
enum class Wanted { kNumber, kText };
model::Variant ToModelValue(VARIANT* variant, Wanted wanted);

}  // namespace quarvel::automation
