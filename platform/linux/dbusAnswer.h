#pragma once

#include <gio/gio.h>

#include <optional>
#include <string>
#include <string_view>

namespace lorelin {

// What goes out over the session bus and what comes back: the other side is any program, in any language.

// The text as the one argument of a call. The bus carries nothing but UTF-8, and no text beyond a NUL: such
// bytes become U+FFFD. The value is floating.
[[nodiscard]] GVariant* TextArgument(std::string_view text);

// The first value of an answer when it is a text; nothing for every other answer. Throws RuntimeError 440 for
// a text beyond all measure.
[[nodiscard]] std::optional<std::string> FirstText(GVariant* answer);

// Whether the name of an error says that there is no such method, in any of its three ways.
[[nodiscard]] bool IsMissingMethod(std::string_view errorName);

// What a person reads of a failure, in UTF-8. The words of an extension are left as they are. `errorName` is
// "" for a failure that is not the bus's.
[[nodiscard]] std::string ReasonOfFailure(std::string_view errorName, std::string_view message);

}  // namespace lorelin
