#pragma once

#include <gio/gio.h>

#include <memory>

namespace lorelin {

struct VariantDeleter {
  void operator()(GVariant* variant) const { g_variant_unref(variant); }
};
using Variant = std::unique_ptr<GVariant, VariantDeleter>;

}  // namespace lorelin
