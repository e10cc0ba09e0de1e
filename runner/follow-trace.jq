# Shows a person what a run does, from the trace as it is written: jq --unbuffered -r -f follow-trace.jq
# Every line is shown before and after it runs; a long pause with its length and its end.

# What a person would want to know in advance how long to wait for, in milliseconds.
def long_pause: 5000;

def clock: . / 1000 | strflocaltime("%H:%M:%S");

def duration:
  if . >= 60000 then "\(. / 60000 | floor) min \(. % 60000 / 1000 | round) s"
  elif . >= 1000 then "\(. / 10 | round / 100) s"
  else "\(round) ms" end;

# The milliseconds of a pause command, or none.
def pause_length: capture("^pause,\\+?(?<length>[0-9]+)(,|$)")? | .length | tonumber;

def before:
  ([.text | pause_length] | first // 0) as $pause
  | "  \(.time | clock)  line \(.number): \(.text)"
  + if $pause >= long_pause then "   … \($pause | duration), until \(.time + $pause | clock)" else "" end;

def after: "            \(if .error then "failed after" else "done in" end) \(.duration | duration)";

# A button of a system alert that was tapped, or none.
def answered_alert:
  .target // "" | capture("keyed \"(?<button>[^\"]*)\" of the system alert \"(?<alert>.*)\"$")?
  | "            answered the alert \(.alert) with \(.button)";

if .event == "scriptStarted" then "Script \(.number) of \(.total), results in \(.iterationPath)"
elif .event == "lineStarted" then before
elif .event == "lineFinished" then after
elif .event == "driver" and .operation == "tap" then answered_alert
elif .event == "step" then "            measured step \(.name): \(.duration | duration)"
elif .event == "scriptError" then "  \(.error.message)"
elif .event == "pictureOrDumpError" then "  The picture or the dump at the end failed: \(.error.message)"
elif .event == "scriptFinished" then "Script: \(.status)"
else empty end
