#include "publish/PageHtml.h"
#include "publish/PagePolicy.h"
#include "publish/PageSample.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(PageHtml, ClosesWhatItOpens) {
    EXPECT_EQ(
        htmlBy([](PageHtml& html) {
            html.open("p", {{"class", "a\"b"}, {"", "left out"}}).words("1 < 2").open("b").close().close();
            html.empty("br").element("td", "x & y");
        }),
        "<p class=\"a&quot;b\">1 &lt; 2<b></b></p><br/><td>x &amp; y</td>");
}

TEST(PageHtml, KeepsTheDirectionOfANameToItself) {
    EXPECT_EQ(htmlBy([](PageHtml& html) { html.name("\u05d0<\x01"); }), "<bdi>\u05d0&lt;</bdi>");
    EXPECT_EQ(htmlBy([](PageHtml& html) { html.name("Mill & Sons"); }), "Mill &amp; Sons");
}

// By `printf 'alert(1)' | openssl dgst -sha256 -binary | base64`, and of nothing.
TEST(PagePolicy, NamesAScriptByItsSum) {
    EXPECT_EQ(policySource("alert(1)"), "sha256-bhHHL3z2vDgxUt0W3dWQOrprscmda2Y5pLsLg4GF+pI=");
    EXPECT_EQ(policySource(""), "sha256-47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=");
}

TEST(PagePolicy, AllowsNothingElse) {
    EXPECT_EQ(pagePolicy("", ""), "default-src 'none'; script-src '" + policySource("") + "'; style-src '" +
                                      policySource("") + "'; base-uri 'none'; form-action 'none'");
}

} // namespace

} // namespace korvel
