#include "platform/linux/GlibChecksums.h"

#include <glib.h>

#include <fstream>
#include <memory>
#include <vector>

#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::size_t kBlock = std::size_t{4} << 20U;

struct FreeChecksum {
  void operator()(GChecksum* checksum) const { g_checksum_free(checksum); }
};

}  // namespace

std::optional<std::string> GlibChecksums::OfFile(const std::string& path, ChecksumKind kind,
                                                 const std::function<bool()>& keepGoing) {
  const std::unique_ptr<GChecksum, FreeChecksum> checksum(
      g_checksum_new(kind == ChecksumKind::Md5 ? G_CHECKSUM_MD5 : G_CHECKSUM_SHA256));
  std::ifstream file(NativePath(path), std::ios::binary);
  std::vector<char> block(kBlock);
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0) {
    g_checksum_update(checksum.get(), reinterpret_cast<const guchar*>(block.data()),
                      static_cast<gssize>(file.gcount()));
    if (!keepGoing()) return std::nullopt;
  }
  if (!file.eof()) return std::nullopt;
  return g_checksum_get_string(checksum.get());
}

}  // namespace lorelin
