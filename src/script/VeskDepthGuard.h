#pragma once

// Counts one level of nesting for as long as it lives, however the scope is left.
class VeskDepthGuard {
  public:
    explicit VeskDepthGuard(int& depth) : depth(depth) { ++depth; }
    ~VeskDepthGuard() { --depth; }
    VeskDepthGuard(const VeskDepthGuard&) = delete;
    VeskDepthGuard& operator=(const VeskDepthGuard&) = delete;

  private:
    int& depth;
};
