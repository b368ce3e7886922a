#include "publish/PageText.h"

#include <gtest/gtest.h>

namespace korvel {

namespace {

TEST(PageText, ShowsTheBytesOfAFileAsUtf8) {
    EXPECT_EQ(pageText("March\xe9"), "March\u00e9");
    EXPECT_EQ(pageText("March\u00e9"), "March\u00e9");
}

TEST(PageText, LeavesControlCharactersOut) {
    EXPECT_EQ(pageText(std::string("a\x1b[31mb\x7f\0c", 10)), "a[31mbc");
    EXPECT_EQ(pageText("a\u0085b\u009bc"), "abc");
    EXPECT_EQ(pageText("a\tb\r\nc"), "a b  c");
    EXPECT_EQ(pageText("a\uffffb\ufffec\ufffd"), "abc\ufffd");
}

TEST(PageText, CutsALongTextBetweenLetters) {
    EXPECT_EQ(pageText("\u00e9\u00e9\u00e9", 3), "\u00e9\u00e9\u00e9");
    EXPECT_EQ(pageText("\u00e9\u00e9\u00e9\u00e9", 3), "\u00e9\u00e9\u00e9\u2026");
    EXPECT_EQ(pageText(std::string(100000, 'x')), std::string(longestPageText, 'x') + "\u2026");
}

TEST(PageText, IsNoMarkup) {
    EXPECT_EQ(htmlOf("</script><img src=x onerror='a(\"b\")'>&amp;"),
              "&lt;/script&gt;&lt;img src=x onerror=&#39;a(&quot;b&quot;)&#39;&gt;&amp;amp;");
}

TEST(PageText, IsNoEndOfAScript) {
    EXPECT_EQ(jsonOf("</script><!--&"), "\"\\u003c/script\\u003e\\u003c!--\\u0026\"");
    EXPECT_EQ(jsonOf("a\"b\\c\n\u2028\u2029\u2030"), "\"a\\u0022b\\u005cc\\u000a\\u2028\\u2029\u2030\"");
}

} // namespace

} // namespace korvel
