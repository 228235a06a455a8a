-- Counting loops with integer arithmetic, written as the Vesk version is.
local function Main()
  local Total, I, J
  Total = 0
  for I = 1, 8000 do
    for J = 1, 6000 do
      Total = (Total + I * J + 7) % 1000003
    end
  end
  print(Total)
end

Main()
