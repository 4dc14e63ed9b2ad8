#include "platform/windows/CryptoChecksums.h"

#include <windows.h>
// the other needs windows.h before it
#include <wincrypt.h>

#include <array>
#include <fstream>
#include <string_view>
#include <vector>

#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::size_t kBlock = std::size_t{4} << 20U;

// A checksum under way; every function answers false when the system has no such thing.
class Hash {
 public:
  explicit Hash(ChecksumKind kind) {
    const ALG_ID algorithm = kind == ChecksumKind::Md5 ? CALG_MD5 : CALG_SHA_256;
    begun_ = CryptAcquireContextW(&provider_, nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT) != 0 &&
             CryptCreateHash(provider_, algorithm, 0, 0, &hash_) != 0;
  }
  ~Hash() {
    if (hash_ != 0) CryptDestroyHash(hash_);
    if (provider_ != 0) CryptReleaseContext(provider_, 0);
  }
  Hash(const Hash&) = delete;
  Hash& operator=(const Hash&) = delete;

  bool Add(const char* bytes, std::size_t size) {
    return begun_ &&
           CryptHashData(hash_, reinterpret_cast<const BYTE*>(bytes), static_cast<DWORD>(size), 0) != 0;
  }
  std::optional<std::string> Text() {
    std::array<BYTE, 32> value{};
    DWORD size = value.size();
    if (!begun_ || CryptGetHashParam(hash_, HP_HASHVAL, value.data(), &size, 0) == 0) return std::nullopt;
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (DWORD i = 0; i < size; ++i) text.append({kDigits[value[i] / 16U], kDigits[value[i] % 16U]});
    return text;
  }

 private:
  HCRYPTPROV provider_ = 0;
  HCRYPTHASH hash_ = 0;
  bool begun_ = false;
};

}  // namespace

std::optional<std::string> CryptoChecksums::OfFile(const std::string& path, ChecksumKind kind,
                                                   const std::function<bool()>& keepGoing) {
  Hash hash(kind);
  std::ifstream file(NativePath(path), std::ios::binary);
  std::vector<char> block(kBlock);
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0) {
    if (!hash.Add(block.data(), static_cast<std::size_t>(file.gcount())) || !keepGoing()) return std::nullopt;
  }
  return file.eof() ? hash.Text() : std::nullopt;
}

}  // namespace lorelin
