# Says why a test is skipped.
message("skipped: ${REASON}")
