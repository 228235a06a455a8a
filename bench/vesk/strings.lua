-- Names built with .. and compared with ==, written as the Vesk version is.
local function Main()
  local I, Name, Label, Matches, Longer
  Matches = 0
  Longer = 0
  for I = 1, 1500000 do
    Name = "raider" .. (I % 100)
    if Name == "raider42" then
      Matches = Matches + 1
    end
    Label = "wave " .. (I % 7) .. " of " .. Name
    if Label ~= "wave 3 of raider42" then
      Longer = Longer + 1
    end
  end
  print(Matches .. " " .. Longer .. " " .. Label)
end

Main()
