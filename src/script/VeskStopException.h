#pragma once

// Unwinds a script whose host asked it to end (VeskScript::requestStop). It is not a fault: run
// and the host's catch of VeskRuntimeException let it pass, so that the host alone decides what
// a stop means, and no error text is made for it.
class VeskStopException {};
