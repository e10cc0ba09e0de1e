#include "manual/CommandNotes.h"
#include "manual/CommonFailures.h"

/// Measured steps, pauses and keys of the phone.
namespace quobrak::manual {

namespace {

CommandNote pressing(const std::string& name, const std::string& description) {
  return {.name = name, .description = description, .arguments = {}, .errors = {}, .stops = {}, .example = name};
}

}  // namespace

CommandGroup measureNotes() {
  return {
      .title = "Measured steps",
      .introduction =
          "What they mean for the results stands in [measured steps](script-language.md#measured-steps). A picture "
          "that "
          "cannot be written fails the script, with the words of the system and without a line.",
      .notes = {
          {.name = "measureStart",
           .description =
               "The picture is taken first, and is called `<stepName>_start`. A step that is open is dropped, "
               "and leaves no measure.",
           .arguments = {"the name of the step; it becomes a part of file names"},
           .errors = {},
           .stops = {},
           .example = "measureStart,Home\npause,30000\nmeasureStop"},
          {.name = "measureStop",
           .description = "The picture is taken last, and is called `<stepName>_stop`. A second `measureStop` records "
                          "the step once more, from the same start.",
           .arguments = {},
           .errors = {},
           .stops = {{.message = "Index out of range: measureStop without a measureStart before it",
                      .when = "no script of the run has had a `measureStart`"}},
           .example = "measureStart,Home\npause,30000\nmeasureStop"},
      }};
}

CommandGroup deviceNotes() {
  return {.title = "Pauses and keys",
          .introduction = "",
          .notes = {
              {.name = "pause",
               .description = "",
               .arguments = {"how long, from 0 to 4294967"},
               .errors = {},
               .stops = {{.message = "The pause of <timeMillis> ms cannot be slept in one piece: it must lie between 0 "
                                     "and 4294967 ms",
                          .when = "`timeMillis` is more than that"},
                         {.message = "The pause in microseconds overflows",
                          .when = "`timeMillis` is more than 2^63 / 1000"}},
               .example = "pause,2000"},
              pressing("pressHome", "What runs goes on running, behind the home screen."),
              pressing("pressVolumeUp", ""),
              pressing("pressVolumeDown", ""),
          }};
}

}  // namespace quobrak::manual
