#include "host/report/ResultsDocument.h"

#include <gtest/gtest.h>

#include <regex>

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {
namespace {

/// As `JSONEncoder` writes it, but with a line for each iteration, script and row.
std::string written(const RunRecord& run) {
  const std::string text = JSONEncoder::encode(resultsDocument(run));
  static const std::regex BEGIN(R"~(([\[,])(\{"(?:folder|cause|lineCount|leftOut|aborted)"))~");
  return std::regex_replace(text, BEGIN, "$1\n$2");
}

TEST(ResultsDocument, HoldsTheRunAndItsFigures) {
  RunRecord run = sampleRun();
  run.iterations.erase(run.iterations.begin() + 2);
  run.endedEarly = true;
  run.phone = "phones/mine";
  EXPECT_EQ(written(run), R"~({"clock":"virtual","driver":"simulator","endedEarly":true,"format":1,"iterations":[
{"folder":"warmUp1","isWarmUp":true,"message":"","number":1,"outcome":"finished","scripts":[
{"cause":"","duration":1500,"line":null,"outcome":"passed","script":0,"stackTrace":"","started":1700000000000,"steps":[{"duration":900,"name":"Show","start":1700000000000,"stop":1700000000900}]},
{"cause":"","duration":1500,"line":null,"outcome":"passed","script":1,"stackTrace":"","started":1700000000000,"steps":[]},
{"cause":"","duration":1500,"line":null,"outcome":"passed","script":2,"stackTrace":"","started":1700000000000,"steps":[{"duration":5,"name":"Cold","start":1700000000000,"stop":1700000000005}]}],"wallTime":4500.25},
{"folder":"iteration1","isWarmUp":false,"message":"","number":1,"outcome":"finished","scripts":[
{"cause":"","duration":1500,"line":null,"outcome":"passed","script":0,"stackTrace":"","started":1700000000000,"steps":[{"duration":100,"name":"Show","start":1700000000000,"stop":1700000000100},{"duration":7,"name":"Pay","start":1700000000000,"stop":1700000000007}]},
{"cause":"The expected text Lamb was not found","duration":1500,"line":{"number":3,"text":"clickByText,Lamb"},"outcome":"failed","script":1,"stackTrace":"Error on line clickByText,Lamb (line: 3). Cause: The expected text Lamb was not found","started":1700000000000,"steps":[{"duration":1,"name":"Type","start":1700000000000,"stop":1700000000001}]},
{"cause":"","duration":1500,"line":null,"outcome":"passed","script":2,"stackTrace":"","started":1700000000000,"steps":[{"duration":40,"name":"Show","start":1700000000000,"stop":1700000000040}]}],"wallTime":4500.25},
{"folder":"iteration3","isWarmUp":false,"message":"The test process stopped itself at line 5 of Shop\/login: clickByText","number":3,"outcome":"aborted","scripts":[
{"cause":"","duration":1500,"line":null,"outcome":"passed","script":0,"stackTrace":"","started":1700000000000,"steps":[]},
{"cause":"Index out of range: the field 1 (selector) is missing","duration":null,"line":{"number":5,"text":"clickByText"},"outcome":"aborted","script":1,"stackTrace":"","started":1700000000000,"steps":[]},
{"cause":"","duration":null,"line":null,"outcome":"notRun","script":2,"stackTrace":"","started":null,"steps":[]}],"wallTime":4500.25}],"kind":"scripts","outcomes":[
{"aborted":0,"failed":0,"notRun":0,"passed":2,"script":0},
{"aborted":1,"failed":1,"notRun":0,"passed":0,"script":1},
{"aborted":0,"failed":0,"notRun":1,"passed":1,"script":2}],"phone":"phones\/mine","plannedIterations":3,"plannedWarmUps":1,"scripts":[
{"lineCount":20,"name":"order","source":"scripts\/order.txt","suite":"Shop"},
{"lineCount":6,"name":"login","source":"scripts\/login.txt","suite":"Shop"},
{"lineCount":1,"name":"settings","source":"\/elsewhere\/settings.txt","suite":"設定"}],"shuffleSeed":"18446744073709551615","statistics":[
{"leftOut":1,"maximum":100,"mean":100.0,"median":100.0,"minimum":100,"n":1,"script":0,"standardDeviation":null,"step":"Show"},
{"leftOut":1,"maximum":7,"mean":7.0,"median":7.0,"minimum":7,"n":1,"script":0,"standardDeviation":null,"step":"Pay"},
{"leftOut":2,"maximum":null,"mean":null,"median":null,"minimum":null,"n":0,"script":1,"standardDeviation":null,"step":"Type"},
{"leftOut":1,"maximum":40,"mean":40.0,"median":40.0,"minimum":40,"n":1,"script":2,"standardDeviation":null,"step":"Show"}]})~");
}

TEST(ResultsDocument, HoldsARunThatNeverBegan) {
  EXPECT_EQ(
      written(RunRecord()),
      R"({"clock":"","driver":"","endedEarly":false,"format":1,"iterations":[],"kind":"scripts","outcomes":[],"phone":"","plannedIterations":1,"plannedWarmUps":0,"scripts":[],"shuffleSeed":null,"statistics":[]})");
}

TEST(ResultsDocument, ReplacesBytesThatAreNoText) {
  RunRecord run;
  run.phone = "phones/\xE9t\xE9";
  EXPECT_EQ(JSONReader(resultsDocument(run)).member("phone").text(), "phones/\uFFFDt\uFFFD");
}

}  // namespace
}  // namespace quobrak::host
