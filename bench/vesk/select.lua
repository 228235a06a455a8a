-- SELECT CASE over integers and strings, counting into globals, written as the Vesk version is:
-- Lua has no SELECT, so each becomes an if/elseif chain over the same comparisons, the selector
-- evaluated for each comparison as Vesk does.
Apples, Pears, Others = 0, 0, 0

local function Main()
  local I, Fruit
  Apples = 0
  Pears = 0
  Others = 0
  for I = 1, 10000000 do
    if I % 4 == 0 then
      Fruit = "apple"
    elseif I % 4 == 1 then
      Fruit = "pear"
    elseif I % 4 == 2 then
      Fruit = "plum"
    elseif I % 4 == 3 then
      Fruit = "cherry"
    end
    if Fruit == "apple" then
      Apples = Apples + 1
    elseif Fruit == "pear" or Fruit == "quince" then
      Pears = Pears + 1
    elseif Fruit == "plum" then
      Others = Others + 2
    elseif Fruit == "cherry" then
      Others = Others + 3
    end
  end
  print(Apples .. " " .. Pears .. " " .. Others)
end

Main()
