# Shows a person what a run does, from the trace as it is written: jq --unbuffered -r -f follow-trace.jq
# Every line is shown before and after it runs; a long pause with its length and its end.

# What a person would want to know in advance how long to wait for, in milliseconds.
def long_pause: 5000;

def clock: . / 1000 | strflocaltime("%H:%M:%S");

def seconds: . / 10 | round / 100 | "\(.) s";

def duration:
  if . >= 60000 then "\(. / 60000 | floor) min \(. % 60000 / 1000 | round) s" else seconds end;

# The milliseconds of a pause command, or none.
def pause_length: capture("^pause,\\+?(?<length>[0-9]+)(,|$)")? | .length | tonumber;

def before:
  ([.text | pause_length] | first // 0) as $pause
  | "  \(.time | clock)  line \(.number): \(.text)"
  + if $pause >= long_pause then "   … \($pause | duration), until \(.time + $pause | clock)" else "" end;

def after:
  if .error then "            failed after \(.duration | seconds): \(.error.message)"
  else "            done in \(.duration | seconds)" end;

if .event == "scriptStarted" then "Script \(.number) of \(.total), results in \(.iterationPath)"
elif .event == "lineStarted" then before
elif .event == "lineFinished" then after
elif .event == "driver" and .operation == "tap" and (.target | contains("the system alert")) then
  "            tapped \(.target)"
elif .event == "step" then "            measured step \(.name): \(.duration | seconds)"
elif .event == "scriptFinished" then
  "Script \(.status)" + if .stackTrace == "" then "" else ": \(.stackTrace)" end + "\n"
else empty end
