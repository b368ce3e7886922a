#include "basic/Sha256.h"

#include "basic/RunTimeError.h"
#include "many/Sums.h"
#include "platform/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(Sha256, GivesTheSumsOfTheStandard) {
    EXPECT_EQ(sha256Of(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256Of("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256Of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(sha256Of("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                       "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
    EXPECT_EQ(sha256Of(std::string(1000000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, IsTheSameWhereverTheBytesAreCut) {
    const std::string bytes(200, 'x');
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        Sha256 sum;
        sum.add(bytes.substr(0, cut));
        sum.add(bytes.substr(cut));
        ASSERT_EQ(sum.hex(), sha256Of(bytes)) << cut;
    }
}

TEST(Sha256, SumsAFile) {
    const TemporaryFolder folder;
    folder.put("a", std::string(600000, 'a'));
    EXPECT_EQ(sha256OfFile(folder.path("a")), sha256Of(std::string(600000, 'a')));
    EXPECT_THROW(sha256OfFile(folder.path("b")), RunTimeError);
    EXPECT_THROW(sha256OfFile(folder.path()), RunTimeError);
}

} // namespace

} // namespace korvel
