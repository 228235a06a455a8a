-- Recursion through two functions, written as the Vesk version is.
local Half

local function Fib(N)
  local Result
  if N < 2 then
    Result = N
  else
    Result = Half(N - 1) + Half(N - 2)
  end
  return Result
end

Half = function(N)
  local Result
  Result = Fib(N)
  return Result
end

print(Fib(32))
