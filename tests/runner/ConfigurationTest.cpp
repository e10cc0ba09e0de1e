#include "runner/Configuration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace quobrak {

namespace {

using Variables = std::map<std::string, std::string>;

Configuration configurationOf(const Variables& variables) {
  return configurationFrom([&variables](const std::string& name) {
    const auto found = variables.find(name);
    return found == variables.end() ? std::nullopt : std::optional(found->second);
  });
}

}  // namespace

TEST(Configuration, WithoutAnyVariable) {
  const Configuration configuration = configurationOf({});
  EXPECT_EQ(configuration.documents, "Documents");
  EXPECT_EQ(configuration.driver, DriverKind::simulator);
  EXPECT_EQ(configuration.phone, std::nullopt);
  EXPECT_EQ(configuration.webdriver.url, "http://127.0.0.1:4723");
  EXPECT_EQ(configuration.webdriver.dialect, "appium");
  EXPECT_EQ(configuration.webdriver.capabilities, std::nullopt);
  EXPECT_EQ(configuration.clock, ClockKind::system);
  EXPECT_EQ(configuration.referencePage.address(), "https://download.example.com/black/index.html");
  EXPECT_EQ(configuration.trace, std::nullopt);
}

TEST(Configuration, WithEveryVariable) {
  const Configuration configuration = configurationOf({{"QUOBRAK_DRIVER", "simulator"},
                                                       {"QUOBRAK_DOCUMENTS", "/some/documents"},
                                                       {"QUOBRAK_PHONE", "a phone"},
                                                       {"QUOBRAK_CLOCK", "virtual"},
                                                       {"QUOBRAK_REFERENCE_PAGE", "https://10.0.0.7/black/index.html"},
                                                       {"QUOBRAK_TRACE", "fd:3"}});
  EXPECT_EQ(configuration.documents, "/some/documents");
  EXPECT_EQ(configuration.phone, "a phone");
  EXPECT_EQ(configuration.clock, ClockKind::virtualTime);
  EXPECT_EQ(configuration.referencePage.address(), "https://10.0.0.7/black/index.html");
  EXPECT_EQ(configuration.trace, "fd:3");
}

TEST(Configuration, OfAServer) {
  const Configuration configuration = configurationOf({{"QUOBRAK_DRIVER", "webdriver"},
                                                       {"QUOBRAK_WEBDRIVER_URL", "https://grid.example.com/wd/hub//"},
                                                       {"QUOBRAK_WEBDRIVER_DIALECT", "appium"},
                                                       {"QUOBRAK_WEBDRIVER_CAPABILITIES", "phone.json"}});
  EXPECT_EQ(configuration.driver, DriverKind::webdriver);
  EXPECT_EQ(configuration.webdriver.url, "https://grid.example.com/wd/hub");
  EXPECT_EQ(configuration.webdriver.dialect, "appium");
  EXPECT_EQ(configuration.webdriver.capabilities, "phone.json");
}

TEST(Configuration, TheServerOnThePhoneListensElsewhere) {
  EXPECT_EQ(configurationOf({{"QUOBRAK_WEBDRIVER_DIALECT", "wda"}}).webdriver.url, "http://127.0.0.1:8100");
}

TEST(Configuration, TheClockOfTheMachineCanBeNamed) {
  EXPECT_EQ(configurationOf({{"QUOBRAK_CLOCK", "system"}}).clock, ClockKind::system);
}

TEST(Configuration, SaysWhatIsWrong) {
  struct Case {
    Variables variables;
    std::string message;
  };
  const std::string driver = ", but must be simulator or webdriver";
  const std::string clock = ", but must be system or virtual";
  const std::string phone = ", but must be a folder that describes a phone, or not be set";
  const std::string page =
      ", but must be an address such as https://www.example.com/black/index.html, which begins with https:// and has "
      "that path";
  const std::string trace = ", but must be a file or fd:N, or not be set";
  for (const auto& [variables, message] :
       {Case{
            {{"QUOBRAK_DRIVER", "webdriver"}, {"QUOBRAK_CLOCK", "virtual"}},
            "QUOBRAK_CLOCK is \"virtual\", but must be system with the driver webdriver: a real phone takes real time"},
        Case{
            {{"QUOBRAK_WEBDRIVER_URL", "127.0.0.1:4723"}},
            "QUOBRAK_WEBDRIVER_URL is \"127.0.0.1:4723\", but must be an address that begins with http:// or https://"},
        Case{{{"QUOBRAK_WEBDRIVER_URL", ""}},
             "QUOBRAK_WEBDRIVER_URL is \"\", but must be an address that begins with http:// or https://"},
        Case{{{"QUOBRAK_WEBDRIVER_DIALECT", "w3c"}}, "QUOBRAK_WEBDRIVER_DIALECT is \"w3c\", but must be appium or wda"},
        Case{{{"QUOBRAK_WEBDRIVER_CAPABILITIES", ""}},
             "QUOBRAK_WEBDRIVER_CAPABILITIES is \"\", but must be a file with a JSON object, or not be set"},
        Case{{{"QUOBRAK_DRIVER", "Simulator"}}, "QUOBRAK_DRIVER is \"Simulator\"" + driver},
        Case{{{"QUOBRAK_DRIVER", ""}}, "QUOBRAK_DRIVER is \"\"" + driver},
        Case{{{"QUOBRAK_DOCUMENTS", ""}}, "QUOBRAK_DOCUMENTS is \"\", but must be a folder"},
        Case{{{"QUOBRAK_PHONE", ""}}, "QUOBRAK_PHONE is \"\"" + phone},
        Case{{{"QUOBRAK_CLOCK", "Virtual"}}, "QUOBRAK_CLOCK is \"Virtual\"" + clock},
        Case{{{"QUOBRAK_CLOCK", ""}}, "QUOBRAK_CLOCK is \"\"" + clock},
        Case{{{"QUOBRAK_REFERENCE_PAGE", ""}}, "QUOBRAK_REFERENCE_PAGE is \"\"" + page},
        Case{{{"QUOBRAK_REFERENCE_PAGE", "https://10.0.0.7/\xFF/black/index.html"}},
             "QUOBRAK_REFERENCE_PAGE is \"https://10.0.0.7/\xFF/black/index.html\"" + page},
        Case{{{"QUOBRAK_TRACE", ""}}, "QUOBRAK_TRACE is \"\"" + trace},
        Case{{{"QUOBRAK_TRACE", ""},
              {"QUOBRAK_DRIVER", "x"},
              {"QUOBRAK_REFERENCE_PAGE", "z"},
              {"QUOBRAK_CLOCK", "y"},
              {"QUOBRAK_PHONE", ""}},
             "QUOBRAK_DRIVER is \"x\"" + driver + "\nQUOBRAK_PHONE is \"\"" + phone + "\nQUOBRAK_CLOCK is \"y\"" +
                 clock + "\nQUOBRAK_REFERENCE_PAGE is \"z\"" + page + "\nQUOBRAK_TRACE is \"\"" + trace}}) {
    EXPECT_THAT([&variables = variables] { configurationOf(variables); },
                ::testing::ThrowsMessage<ConfigurationError>(message));
  }
}

TEST(UnknownVariables, AreThoseThatOnlyLookLikeOurs) {
  EXPECT_THAT(
      unknownVariables({"QUOBRAK_CLOK", "PATH", "QUOBRAK_CLOCK", "QUOBRAK_DRIVER", "QUOBRAK_DOCUMENTS", "QUOBRAK_PHONE",
                        "QUOBRAK_REFERENCE_PAGE", "QUOBRAK_TRACE", "quobrak_trace", "QUOBRAK_",
                        "QUOBRAK_WEBDRIVER_CAPABILITIES", "QUOBRAK_WEBDRIVER_DIALECT", "QUOBRAK_WEBDRIVER_URL"}),
      ::testing::ElementsAre("QUOBRAK_CLOK", "QUOBRAK_"));
}

TEST(IdleVariables, AreThoseOfTheOtherDriver) {
  const std::vector<std::string> names{"QUOBRAK_PHONE",         "QUOBRAK_DRIVER", "QUOBRAK_REFERENCE_PAGE",
                                       "QUOBRAK_WEBDRIVER_URL", "PATH",           "QUOBRAK_WEBDRIVER_DIALECT"};
  EXPECT_THAT(idleVariables(names, DriverKind::simulator),
              ::testing::ElementsAre("QUOBRAK_WEBDRIVER_URL", "QUOBRAK_WEBDRIVER_DIALECT"));
  EXPECT_THAT(idleVariables(names, DriverKind::webdriver), ::testing::ElementsAre("QUOBRAK_PHONE"));
}

}  // namespace quobrak
