#include "outputs/checksum.h"

#include <gtest/gtest.h>
#include <openssl/crypto.h>

#include <cstdlib>
#include <new>
#include <string>

#include "outputs/refused.h"
#include "support/temp_dir.h"

namespace Outputs {
namespace {

// FIPS 180-2, appendices B.1 to B.3.
const std::string of_abc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
const std::string of_two_blocks =
    "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1";
const std::string of_a_million = "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";

TEST(Checksum, OfTextsIsThePublishedOne) {
  EXPECT_EQ(sha256("abc"), of_abc);
  EXPECT_EQ(sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"), of_two_blocks);
}

TEST(Checksum, OfFilesIsThePublishedOne) {
  const Testing::TempDir dir;
  EXPECT_EQ(sha256_of_file(dir.write("abc", "abc"), "abc"), of_abc);
  EXPECT_EQ(sha256_of_file(dir.write("a", std::string(1000000, 'a')), "a"), of_a_million);
}

TEST(Checksum, ReportsAFileThatCannotBeRead) {
  const Testing::TempDir dir;
  EXPECT_EQ(Testing::refused([&] { sha256_of_file(dir.file("none"), "x.out/none"); }),
            "x.out/none: No such file or directory");
  EXPECT_EQ(Testing::refused([&] { sha256_of_file(dir.path(), "x.out"); }),
            "x.out: Is a directory");
}

// The library that makes checksums takes its memory functions before it is used at all. So this
// process starts anew.
TEST(ChecksumDeathTest, ReportsThatMemoryRunsOut) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto without_memory = [] {
    const auto none = [](std::size_t, const char*, int) -> void* { return nullptr; };
    const auto no_more = [](void*, std::size_t, const char*, int) -> void* { return nullptr; };
    const auto nothing = [](void*, const char*, int) {};
    if (CRYPTO_set_mem_functions(none, no_more, nothing) != 1) std::_Exit(2);
    try {
      sha256("abc");
    } catch (const std::bad_alloc&) {
      std::_Exit(0);
    }
    std::_Exit(1);
  };
  EXPECT_EXIT(without_memory(), testing::ExitedWithCode(0), "");
}

TEST(Checksum, OfAFileThatCannotBeReadIsReported) {
  // No address 0 is mapped.
  EXPECT_EQ(Testing::refused([] { sha256_of_file("/proc/self/mem", "x"); }),
            "x: Input/output error");
}

}  // namespace
}  // namespace Outputs
