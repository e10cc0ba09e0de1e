#include "quobrakUITests/ReferencePage.h"

#include <gtest/gtest.h>

#include <string>

namespace quobrak {
namespace {

TEST(ReferencePage, UnlessAnotherOneIsInstalledItIsOneThatNobodyServes) {
  EXPECT_EQ(ReferencePage::shared().address(), "https://download.example.com/black/index.html");
}

TEST(ReferencePage, IsTheOneThatWasInstalled) {
  ReferencePage::install(ReferencePage::at("https://10.0.0.7/black/index.html").value());
  EXPECT_EQ(ReferencePage::shared().address(), "https://10.0.0.7/black/index.html");
  ReferencePage::install(ReferencePage());
  EXPECT_EQ(ReferencePage::shared().address(), "https://download.example.com/black/index.html");
}

TEST(ReferencePage, AddressesThatItCanHave) {
  for (const std::string address :
       {"https://download.example.com/black/index.html", "https://localhost/black/index.html",
        "https://Pages-1.example/black/index.html", "https://192.0.2.1:8443/black/index.html",
        "https://[2001:db8::1]/black/index.html", "https://[::ffff:192.0.2.1]:443/black/index.html"}) {
    const auto page = ReferencePage::at(address);
    ASSERT_TRUE(page.has_value()) << address;
    EXPECT_EQ(page->address(), address);
  }
}

TEST(ReferencePage, AddressesThatItCannotHave) {
  for (const std::string address : {"",
                                    "https://",
                                    "about:blank",
                                    "/black/index.html",
                                    "https:///black/index.html",
                                    "http://example.com/black/index.html",
                                    "HTTPS://example.com/black/index.html",
                                    "https:/example.com/black/index.html",
                                    "https://example.com",
                                    "https://example.com/",
                                    "https://example.com/index.html",
                                    "https://example.com/black",
                                    "https://example.com/black/index.htm",
                                    "https://example.com/black/index.html/",
                                    "https://example.com/black/index.html?a=b",
                                    "https://example.com/black/index.html#top",
                                    "https://example.com/black/indexxhtml",
                                    "https://example.com/Black/index.html",
                                    "https://example.com/a/black/index.html",
                                    "https://example.com//black/index.html",
                                    "https://example.com/?/black/index.html",
                                    "https://me@example.com/black/index.html",
                                    "https://example.com:/black/index.html",
                                    "https://example.com:x/black/index.html",
                                    "https://example..com/black/index.html",
                                    "https://.example.com/black/index.html",
                                    "https://example.com./black/index.html",
                                    "https://exa mple.com/black/index.html",
                                    "https://example.com/black/index.html\n",
                                    "https://example.com/black/index.html ",
                                    " https://example.com/black/index.html",
                                    "https://example.com,example.org/black/index.html",
                                    "https://ex\xC3\xA4mple.com/black/index.html",
                                    "https://ex\xFFmple.com/black/index.html",
                                    "https://[::1/black/index.html",
                                    "https://[]/black/index.html"}) {
    EXPECT_FALSE(ReferencePage::at(address).has_value()) << address;
  }
}

}  // namespace
}  // namespace quobrak
