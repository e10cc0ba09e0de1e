-- The same reader as scriptReader.cpp, as one would write it in LuaJIT: luajit scriptReader.lua FILE

local command_count, text_length, number_sum = 0, 0, 0

local function number(field)
  if field == nil then return 30000 end
  local value = field:find("^[+-]?%d+$") and tonumber(field)
  if not value then error("The timeout " .. field .. " should be an integer", 0) end
  return value
end

local function text(field)
  if field == nil then error("Index out of range", 0) end
  return field
end

local function with_nothing() command_count = command_count + 1 end
local function with_text(fields)
  command_count = command_count + 1
  text_length = text_length + #text(fields[2])
end
local function with_number(fields)
  command_count = command_count + 1
  number_sum = number_sum + number(fields[2])
end
local function with_text_and_number(fields)
  with_text(fields)
  number_sum = number_sum + number(fields[3])
end

-- The language's names, so that looking them up costs what it will.
local names = [[
  applicationStart applicationKill launchBrowser browserGoToUrl browserClearCache browserPrepareAndOpen
  browserPrepareAndOpenForReference clickByText clickByTextExact longClickByText clickByTextOnSystemPopup
  clickByXY longClickByXY clickByPercent clickOnLastElementFound findByClass findByText findByTextExact installApp
  measureStart measureStop pause pressHome pressVolumeUp pressVolumeDown waitUntilText waitUntilTextExact
  waitUntilAccessibilityField waitUntilAccessibilityFieldExact waitUntilTextOnSystemPopup waitUntilGoneText
  waitUntilGoneTextExact waitUntilGoneAccessibilityField waitUntilGoneAccessibilityFieldExact
  waitUntilTextBeforeClick waitUntilTextExactBeforeClick waitUntilAccessibilityFieldBeforeClick
  waitUntilAccessibilityFieldExactBeforeClick enterText enterTextFast setTextByText setTextByTextExact
  scrollDownward scrollUpward scrollLeftward scrollRightward swipeDownward swipeUpward swipeLeftward
  swipeRightward swipeVertical swipeHorizontal swipeDownwardToText swipeUpwardToText
]]
local commands, index = {}, 0
local shapes = {[0] = with_nothing, with_text, with_number, with_text_and_number}
for name in names:gmatch("%w+") do
  commands[name] = shapes[index % 4]
  index = index + 1
end

local byte, find, sub = string.byte, string.find, string.sub

-- All newlines become line feeds, so that a plain search splits the script.
local function with_line_feeds(script)
  if find(script, "[\v\f\r]") then script = script:gsub("[\v\f\r]", "\n") end
  if find(script, "\194\133", 1, true) then script = script:gsub("\194\133", "\n") end
  if find(script, "\226\128[\168\169]") then script = script:gsub("\226\128[\168\169]", "\n") end
  return script
end

-- The blanks of scripts: space, tab, and the no-break space.
local function trimmed(line)
  local first, last = 1, #line
  while first <= last do
    local b = byte(line, first)
    if b == 32 or b == 9 then first = first + 1
    elseif b == 194 and byte(line, first + 1) == 160 then first = first + 2
    else break end
  end
  while last >= first do
    local b = byte(line, last)
    if b == 32 or b == 9 then last = last - 1
    elseif b == 160 and byte(line, last - 1) == 194 then last = last - 2
    else break end
  end
  if first == 1 and last == #line then return line end
  return sub(line, first, last)
end

local function substituted(line, raw, line_number)
  while true do
    local first, last, name = find(line, "%${([%w_\128-\255]+)}")
    if not first then return line end
    local value = os.getenv(name)
    if not value then
      error("Error on line " .. raw .. " (line: " .. line_number .. "). Cause: You need to pass the extra parameter " ..
        name .. " to your test", 0)
    end
    local reference = sub(line, first, last)
    repeat
      line = sub(line, 1, first - 1) .. value .. sub(line, last + 1)
      first, last = find(line, reference, first + #value, true)
    until not first
  end
end

local file = assert(io.open(arg[1], "rb"))
local script = with_line_feeds(file:read("*a"))
file:close()

local prepared, line_count, begin = {}, 0, 1
repeat
  local newline = find(script, "\n", begin, true)
  local raw = sub(script, begin, (newline or 0) - 1)
  line_count = line_count + 1
  local line = trimmed(raw)
  if find(line, "${", 1, true) and byte(line) ~= 35 then line = substituted(line, raw, line_count) end
  prepared[line_count] = line
  begin = (newline or 0) + 1
until not newline

for i = 1, line_count do
  local line = prepared[i]
  if line ~= "" and byte(line) ~= 35 then
    local fields, count, from = {}, 0, 1
    local comma = find(line, ",", 1, true)
    while comma do
      count = count + 1
      fields[count] = sub(line, from, comma - 1)
      from = comma + 1
      comma = find(line, ",", from, true)
    end
    fields[count + 1] = sub(line, from)
    local command = commands[fields[1]]
    if not command then
      error("Error on line " .. line .. " (line: " .. i .. "). Cause: Function " .. fields[1] .. " is not implemented", 0)
    end
    command(fields)
  end
end

print(string.format("%d %d %d", command_count, text_length, number_sum))
