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
  EXPECT_EQ(configuration.phone, std::nullopt);
  EXPECT_EQ(configuration.clock, ClockKind::system);
  EXPECT_EQ(configuration.trace, std::nullopt);
}

TEST(Configuration, WithEveryVariable) {
  const Configuration configuration = configurationOf({{"QUOBRAK_DRIVER", "simulator"},
                                                       {"QUOBRAK_DOCUMENTS", "/some/documents"},
                                                       {"QUOBRAK_PHONE", "a phone"},
                                                       {"QUOBRAK_CLOCK", "virtual"},
                                                       {"QUOBRAK_TRACE", "fd:3"}});
  EXPECT_EQ(configuration.documents, "/some/documents");
  EXPECT_EQ(configuration.phone, "a phone");
  EXPECT_EQ(configuration.clock, ClockKind::virtualTime);
  EXPECT_EQ(configuration.trace, "fd:3");
}

TEST(Configuration, TheClockOfTheMachineCanBeNamed) {
  EXPECT_EQ(configurationOf({{"QUOBRAK_CLOCK", "system"}}).clock, ClockKind::system);
}

TEST(Configuration, SaysWhatIsWrong) {
  struct Case {
    Variables variables;
    std::string message;
  };
  const std::string driver = ", but must be simulator, the only driver that this program has";
  const std::string clock = ", but must be system or virtual";
  const std::string phone = ", but must be a folder that describes a phone, or not be set";
  const std::string trace = ", but must be a file or fd:N, or not be set";
  for (const auto& [variables, message] :
       {Case{{{"QUOBRAK_DRIVER", "webdriver"}}, "QUOBRAK_DRIVER is \"webdriver\"" + driver},
        Case{{{"QUOBRAK_DRIVER", "Simulator"}}, "QUOBRAK_DRIVER is \"Simulator\"" + driver},
        Case{{{"QUOBRAK_DRIVER", ""}}, "QUOBRAK_DRIVER is \"\"" + driver},
        Case{{{"QUOBRAK_DOCUMENTS", ""}}, "QUOBRAK_DOCUMENTS is \"\", but must be a folder"},
        Case{{{"QUOBRAK_PHONE", ""}}, "QUOBRAK_PHONE is \"\"" + phone},
        Case{{{"QUOBRAK_CLOCK", "Virtual"}}, "QUOBRAK_CLOCK is \"Virtual\"" + clock},
        Case{{{"QUOBRAK_CLOCK", ""}}, "QUOBRAK_CLOCK is \"\"" + clock},
        Case{{{"QUOBRAK_TRACE", ""}}, "QUOBRAK_TRACE is \"\"" + trace},
        Case{{{"QUOBRAK_TRACE", ""}, {"QUOBRAK_DRIVER", "x"}, {"QUOBRAK_CLOCK", "y"}, {"QUOBRAK_PHONE", ""}},
             "QUOBRAK_DRIVER is \"x\"" + driver + "\nQUOBRAK_PHONE is \"\"" + phone + "\nQUOBRAK_CLOCK is \"y\"" +
                 clock + "\nQUOBRAK_TRACE is \"\"" + trace}}) {
    EXPECT_THAT([&variables = variables] { configurationOf(variables); },
                ::testing::ThrowsMessage<ConfigurationError>(message));
  }
}

TEST(UnknownVariables, AreThoseThatOnlyLookLikeOurs) {
  EXPECT_THAT(unknownVariables({"QUOBRAK_CLOK", "PATH", "QUOBRAK_CLOCK", "QUOBRAK_DRIVER", "QUOBRAK_DOCUMENTS",
                                "QUOBRAK_PHONE", "QUOBRAK_TRACE", "quobrak_trace", "QUOBRAK_"}),
              ::testing::ElementsAre("QUOBRAK_CLOK", "QUOBRAK_"));
}

}  // namespace quobrak
