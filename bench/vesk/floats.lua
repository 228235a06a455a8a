-- Float arithmetic in nested FOR loops, written as the Vesk version is.
local function Main()
  local X, Y, Fx, Fy, D, Acc, Near
  Acc = 0.0
  Near = 0
  for Y = 1, 4000 do
    Fy = 0.5 * Y
    for X = 1, 2500 do
      Fx = 0.25 * X
      D = Fx - Fy
      if D < 0.0 then
        D = 0.0 - D
      end
      Acc = Acc + D * 0.125
      if Acc > 1000.0 then
        Acc = Acc - 1000.0
        Near = Near + 1
      end
    end
  end
  print(string.format("%f", Acc) .. " " .. Near)
end

Main()
