-- Many small calls with several arguments and locals that update globals, written as the Vesk
-- version is.
Score, Hits = nil, nil

local function Hit(Id, X, Y, Damage)
  local Distance
  Distance = X - Y
  if Distance < 0 then
    Distance = 0 - Distance
  end
  Score = (Score + Damage * Id + Distance) % 1000003
  Hits = Hits + 1
  return Distance
end

local function Main()
  local I, Total
  Score = 0
  Hits = 0
  Total = 0
  for I = 1, 4000000 do
    Total = (Total + Hit(I % 5, I % 640, I % 480, 3)) % 1000003
  end
  print(Score .. " " .. Hits .. " " .. Total)
end

Main()
