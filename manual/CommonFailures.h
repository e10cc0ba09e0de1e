#pragma once

#include "manual/CommandNote.h"

/// Failures that several commands have, and their words.
namespace quobrak::manual {

/// What the status says of what a driver raises.
inline constexpr const char* UNKNOWN_ERROR = "An unknown error occured while executing actions";

inline const Failure NOT_INITIALISED{
    .message =
        "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your "
        "script.",
    .when = "no script of the run has started an application"};

inline const Failure NOT_HITTABLE{.message = "The element <label> is not hittable",
                                  .when = "the element is covered, or not on the screen"};

inline const Failure NOT_HITTABLE_WITHOUT_LABEL{.message = "The element is not hittable",
                                                .when = "the same, and the element has no label"};

inline const Failure TEXT_NOT_FOUND{.message = "The expected text <selector> was not found",
                                    .when = "no enabled element has such a text"};

inline const Failure NO_PATTERN{.message = UNKNOWN_ERROR, .when = "`selector` is not a pattern that can be read"};

}  // namespace quobrak::manual
