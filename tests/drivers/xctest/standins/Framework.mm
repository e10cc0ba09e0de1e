#import "tests/drivers/xctest/standins/Framework.h"

#include <algorithm>
#include <unordered_set>

#include "drivers/xctest/Texts.h"

using quobrak::simulator::Element;

@implementation _XCTestCaseInterruptionException
@end

/// An element as the framework pictures it for the predicates of queries.
@interface StandInSnapshot : NSObject {
  const Element* element_;
}
- (instancetype)initWithElement:(const Element&)element;
@end

@implementation StandInSnapshot

- (instancetype)initWithElement:(const Element&)element {
  self = [super init];
  element_ = &element;
  return self;
}

- (NSString*)label {
  return quobrak::xctest::platformText(element_->label);
}

- (NSString*)identifier {
  return quobrak::xctest::platformText(element_->identifier);
}

- (id)value {
  return element_->value ? quobrak::xctest::platformText(*element_->value) : nil;
}

- (NSString*)placeholderValue {
  return element_->placeholder ? quobrak::xctest::platformText(*element_->placeholder) : nil;
}

- (BOOL)isEnabled {
  return element_->isEnabled ? YES : NO;
}

- (BOOL)isSelected {
  return element_->isSelected ? YES : NO;
}

@end

namespace quobrak::testing {

namespace {

using Elements = std::vector<const Element*>;

std::string named(const char* owner, SEL selector) {
  return std::string(owner) + " " + xctest::textOf(NSStringFromSelector(selector));
}

Elements descendants(const Elements& roots, XCUIElementType type) {
  Elements kept;
  std::unordered_set<const Element*> walked;
  for (const Element* root : roots) {
    if (walked.contains(root)) {
      continue;
    }
    simulator::forEachDescendant(*root, [&](const Element& element) {
      walked.insert(&element);
      if (type == 0 || static_cast<XCUIElementType>(element.type) == type) {
        kept.push_back(&element);
      }
    });
  }
  return kept;
}

bool holds(::NSPredicate* predicate, const Element& element) {
  const auto snapshot = xctest::Ref<StandInSnapshot*>::adopting([[StandInSnapshot alloc] initWithElement:element]);
  return [predicate evaluateWithObject:snapshot.get()] != NO;
}

Elements after(const Step& step, const Elements& before) {
  if (const auto* const below = std::get_if<Descendants>(&step)) {
    return descendants(before, below->type);
  }
  Elements kept;
  if (const auto* const matching = std::get_if<Matching>(&step)) {
    std::copy_if(before.begin(), before.end(), std::back_inserter(kept),
                 [matching](const Element* element) { return holds(matching->predicate.get(), *element); });
    return kept;
  }
  if (const NSUInteger index = std::get<Picked>(step).index; index < before.size()) {
    kept.push_back(before[index]);
  }
  return kept;
}

Elements rootsOf(const Chain& chain) {
  PhoneAccess& phone = Framework::shared().phone();
  const auto* const application = std::get_if<std::string>(&chain.root);
  const Element* const root =
      application == nullptr ? phone.alert(std::get<std::uint64_t>(chain.root)) : phone.screenOf(*application);
  if (root == nullptr && application != nullptr) {
    Framework::shared().recordFailure("Application " + *application + " is not running");
  }
  return root == nullptr ? Elements{} : Elements{root};
}

std::vector<Elements> stagesOf(const Chain& chain) {
  std::vector<Elements> stages{rootsOf(chain)};
  for (const Step& step : chain.steps) {
    stages.push_back(after(step, stages.back()));
  }
  return stages;
}

/// The handed-over alert, in words.
class AlertWords final : public ElementHandle {
 public:
  std::string description() const override { return "the interrupting element"; }
};

/// For descriptions: the predicates themselves do not come back from the platform's objects.
XCUIElement inWords(const Chain& chain) {
  const auto* const application = std::get_if<std::string>(&chain.root);
  XCUIElementQuery query(application == nullptr ? QueryRoot(std::make_shared<const AlertWords>())
                                                : QueryRoot(ApplicationRoot{*application}));
  if (chain.steps.empty()) {
    return XCUIElement(query.root());
  }
  const std::span<const Step> steps(chain.steps.data(), chain.steps.size() - 1);
  for (const Step& step : steps) {
    if (const auto* const below = std::get_if<Descendants>(&step)) {
      query = query.appending(DescendantsStep{static_cast<ElementType>(below->type)});
    } else if (std::holds_alternative<Matching>(step)) {
      query = query.appending(MatchingPredicateStep{quobrak::NSCompoundPredicate::andPredicate({})});
    } else {
      query = query.appending(ElementPick(AtIndex{std::get<Picked>(step).index}));
    }
  }
  return XCUIElement(query, AtIndex{std::get<Picked>(chain.steps.back()).index});
}

}  // namespace

Framework& Framework::shared() {
  static Framework framework;
  return framework;
}

void Framework::begin(simulator::Phone& phone, ::XCTestCase* testCase) {
  // For what is autoreleased outside of the adapter's own pools.
  static NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
  (void)pool;
  monitors_.clear();
  sent_.clear();
  failures_.clear();
  injected_ = std::exchange(toInject_, std::nullopt);
  continueAfterFailure = YES;
  canEncodePictures = true;
  phone_.emplace(phone);
  testCase_ = xctest::Ref<::XCTestCase*>(testCase);
}

void Framework::sent(const char* owner, SEL selector) {
  sent_.push_back(named(owner, selector));
  if (!injected_ || injected_->selector != sent_.back()) {
    return;
  }
  const InjectedException exception = *std::exchange(injected_, std::nullopt);
  if (exception.name.empty()) {
    return recordFailure(exception.reason);
  }
  [[NSException exceptionWithName:xctest::platformText(exception.name)
                           reason:xctest::platformText(exception.reason)
                         userInfo:nil] raise];
}

void Framework::recordFailure(const std::string& text) {
  ::XCTIssue* const failure = [[[::XCTIssue alloc] initWithType:XCTIssueTypeAssertionFailure
                                             compactDescription:xctest::platformText(text)] autorelease];
  [testCase_.get() recordIssue:failure];
}

void Framework::failed(const std::string& text) {
  failures_.push_back(text);
  if (!continueAfterFailure) {
    [[_XCTestCaseInterruptionException exceptionWithName:@"_XCTestCaseInterruptionException"
                                                  reason:@"Interrupting test"
                                                userInfo:nil] raise];
  }
}

NSNumber* Framework::addMonitor(InterruptionBlock handler) {
  monitors_.push_back({++lastMonitor_, HeldBlock(handler)});
  return [NSNumber numberWithLong:lastMonitor_];
}

void Framework::removeMonitor(NSNumber* monitor) {
  std::erase_if(monitors_, [monitor](const Monitor& registered) { return registered.number == [monitor longValue]; });
}

bool Framework::askHandlers(::XCUIElement* alert) const {
  // A copy, because a handler may be removed while it runs.
  const std::vector<Monitor> monitors = monitors_;
  return std::any_of(monitors.rbegin(), monitors.rend(),
                     [alert](const Monitor& monitor) { return monitor.handler.get()(alert) != NO; });
}

void Framework::dealWithInterruptions(const Element& target) {
  std::uint64_t last = 0;
  while (phone().isBlocked(target)) {
    const std::uint64_t number = phone().phone().alert()->number;
    if (number == last || !askHandlers(elementOf({number, {}}))) {
      return;
    }
    last = number;
  }
}

Chain Chain::appending(Step step) const {
  Chain longer = *this;
  longer.steps.push_back(std::move(step));
  return longer;
}

Elements found(const Chain& chain) {
  return stagesOf(chain).back();
}

const Element* required(const Chain& chain) {
  const Elements elements = found(chain);
  if (elements.empty()) {
    Framework::shared().recordFailure("No matches found");
    return nullptr;
  }
  return elements.front();
}

std::string descriptionOf(const Chain& chain) {
  return Framework::shared().phone().debugDescription(inWords(chain), stagesOf(chain));
}

::XCUIElement* elementOf(Chain chain) {
  ::XCUIElement* const element = [[[::XCUIElement alloc] init] autorelease];
  states<Chain>().insert_or_assign(element, std::move(chain));
  return element;
}

::XCUIElementQuery* queryOf(Chain chain) {
  ::XCUIElementQuery* const query = [[[::XCUIElementQuery alloc] init] autorelease];
  states<Chain>().insert_or_assign(query, std::move(chain));
  return query;
}

std::vector<std::string> sentSelectors() {
  return Framework::shared().sentSelectors();
}

void inject(InjectedException exception) {
  Framework::shared().inject(std::move(exception));
}

void injectIntoTest(InjectedException exception) {
  Framework::shared().injectAtTheBeginning(std::move(exception));
}

void giveNoPicture() {
  Framework::shared().canEncodePictures = false;
}

void tapInTheFramework(const std::string& bundleIdentifier) {
  [elementOf({bundleIdentifier, {}}) tap];
}

std::vector<std::string> recordedFailures() {
  return Framework::shared().failures();
}

std::optional<std::string> platformExceptionOf(const std::function<void()>& action) {
  std::optional<std::string> name;
  @autoreleasepool {
    @try {
      action();
    } @catch (NSException* exception) {
      name = xctest::textOf([exception name]);
    }
  }
  return name;
}

}  // namespace quobrak::testing
