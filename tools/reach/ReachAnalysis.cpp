#include "ReachAnalysis.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <vector>

#include "ReachWorld.h"
#include "actors/Player.h"

namespace {

// A state as the search tells states apart (see ReachBounds).
struct StateKey {
    std::int32_t x;
    std::int32_t y;
    std::int16_t vx;
    std::int16_t vy;
    std::uint8_t footing;

    bool operator==(const StateKey& other) const {
        return x == other.x && y == other.y && vx == other.vx && vy == other.vy && footing == other.footing;
    }
};

// The keys seen so far, each with the range of positions and horizontal speeds followed from it:
// open addressing with linear probing, kept at most half full, several times faster than a
// node-based map here, where looking keys up is much of the search's work.
class SeenStates {
  public:
    SeenStates() : slots(kFirstSize) {}

    // Forgets every key and keeps the room, so that the next search starts without growing.
    void clear() {
        std::fill(slots.begin(), slots.end(), Slot{});
        count = 0;
    }

    // Whether a state of this key is to be followed: the key is new, or the state lies farther
    // left or right, or moves faster either way, than those followed from it so far, by more than
    // the margins (and widens their range). Of states that round alike, the first to arrive is
    // often not the one that gets farthest: a step of steering or of speed per frame is smaller
    // than a step of rounding, and merging it away every frame would lose it for good.
    bool admit(const StateKey& key, const ReachState& state, const ReachBounds& bounds) {
        const float x = state.position.x;
        const float speed = state.velocity.x;
        if (2 * (count + 1) > slots.size()) {
            grow();
        }
        Slot& slot = find(key);
        if (!slot.isUsed()) {
            slot = Slot{key, {x, x}, {speed, speed}};
            count++;
            return true;
        }
        const bool widens = slot.x.widen(x, bounds.positionMargin);
        return slot.speed.widen(speed, state.free ? bounds.airSpeedMargin : bounds.speedMargin) || widens;
    }

  private:
    // The least and the greatest of a figure among the states followed.
    struct Range {
        float least;
        float greatest;

        bool widen(float value, float margin) {
            if (value > greatest + margin) {
                greatest = value;
                return true;
            }
            if (value < least - margin) {
                least = value;
                return true;
            }
            return false;
        }
    };

    struct Slot {
        StateKey key{0, 0, 0, 0, kNoFooting};
        Range x{0.0f, 0.0f};      // pixels
        Range speed{0.0f, 0.0f};  // across, pixels per frame

        bool isUsed() const { return key.footing != kNoFooting; }
    };

    static constexpr std::uint8_t kNoFooting = 0xFF;  // no state has every footing bit set

    static constexpr std::size_t kFirstSize = 1 << 16;  // a power of two

    static std::size_t hash(const StateKey& key) {
        std::uint64_t h = static_cast<std::uint32_t>(key.x);
        h = h * 0x9E3779B97F4A7C15ULL ^ static_cast<std::uint32_t>(key.y);
        h = h * 0x9E3779B97F4A7C15ULL ^
            (static_cast<std::uint32_t>(static_cast<std::uint16_t>(key.vx)) << 16 |
             static_cast<std::uint16_t>(key.vy));
        h = h * 0x9E3779B97F4A7C15ULL ^ key.footing;
        return static_cast<std::size_t>(h ^ h >> 29);
    }

    Slot& find(const StateKey& key) {
        const std::size_t mask = slots.size() - 1;
        for (std::size_t at = hash(key) & mask;; at = (at + 1) & mask) {
            if (!slots[at].isUsed() || slots[at].key == key) {
                return slots[at];
            }
        }
    }

    void grow() {
        std::vector<Slot> old(slots.size() * 2);
        old.swap(slots);
        for (const Slot& slot : old) {
            if (slot.isUsed()) {
                find(slot.key) = slot;
            }
        }
    }

    std::vector<Slot> slots;
    std::size_t count = 0;
};

std::int32_t step(float value, float size) {
    return static_cast<std::int32_t>(std::lround(value / size));
}

StateKey keyOf(const ReachState& state, const ReachBounds& bounds) {
    const std::uint8_t footing = static_cast<std::uint8_t>(state.free) |
                                 static_cast<std::uint8_t>(state.acceleration.y != 0.0f) << 1 |
                                 static_cast<std::uint8_t>(state.jumping) << 2 |
                                 static_cast<std::uint8_t>(state.held.jump && !state.free) << 3 |
                                 static_cast<std::uint8_t>(state.free ? 0 : state.held.direction << 4);
    return StateKey{step(state.position.x, bounds.positionStep), step(state.position.y, bounds.positionStep),
                    static_cast<std::int16_t>(step(state.velocity.x, bounds.speedStep)),
                    static_cast<std::int16_t>(step(state.velocity.y, bounds.fallStep)), footing};
}

bool isSame(const Vector& a, const Vector& b) {
    return a.x == b.x && a.y == b.y;
}

bool isSameMotion(const ReachState& a, const ReachState& b) {
    return isSame(a.position, b.position) && isSame(a.velocity, b.velocity) &&
           isSame(a.acceleration, b.acceleration) && a.free == b.free && a.board == b.board;
}

// A state reached, and how: the state it came from (-1 for the start) and the input between.
struct Node {
    ReachState state;
    int parent;
    ReachInput input;
    int frame;
    int stay;  // frames in a row with the same key and input
};

// How a span was first stood on: after `input` from node `parent`.
struct Arrival {
    int parent = -1;
    ReachInput input;
};

ReachWitness witnessOf(const std::vector<Node>& nodes, Arrival arrival) {
    ReachWitness witness(static_cast<std::size_t>(nodes[arrival.parent].frame) + 1);
    witness.back() = arrival.input;
    for (int at = arrival.parent; nodes[at].parent >= 0; at = nodes[at].parent) {
        witness[static_cast<std::size_t>(nodes[at].frame) - 1] = nodes[at].input;
    }
    return witness;
}

const ReachInput kGroundInputs[] = {{ReachInput::NONE, false},  {ReachInput::LEFT, false},
                                    {ReachInput::RIGHT, false}, {ReachInput::NONE, true},
                                    {ReachInput::LEFT, true},   {ReachInput::RIGHT, true}};
const int kAirInputCount = 3;  // the first three: the jump key released

const std::atomic<bool> kNeverCancelled{false};

}  // namespace

// What one search builds up, kept from search to search: an editor searches again after every
// edit, and a search of the fortress fills some 30 MB of each, which the memory would otherwise
// have to hand over, page by page, and the vector move, each time.
struct ReachAnalysis::Scratch {
    std::vector<Node> nodes;
    SeenStates seen;
};

ReachAnalysis::ReachAnalysis(const std::string& role)
    : player(std::make_unique<Grevan::Player>("reach", role)), scratch(std::make_unique<Scratch>()) {}

ReachAnalysis::~ReachAnalysis() = default;

ReachResult ReachAnalysis::run(const ReachLevel& level, ReachPoint start) {
    return run(level, start, kNeverCancelled);
}

ReachResult ReachAnalysis::run(const ReachLevel& level, ReachPoint start, const std::atomic<bool>& cancel) {
    ReachResult result;
    result.start = start;
    ReachWorld world(level, std::move(player));
    std::vector<Arrival> arrivals(level.getSpans().size());
    std::vector<Node>& nodes = scratch->nodes;
    nodes.assign(1, Node{world.startAt(start.x, start.y), -1, ReachInput{}, 0, 0});
    SeenStates& seen = scratch->seen;
    seen.clear();
    seen.admit(keyOf(nodes[0].state, bounds), nodes[0].state, bounds);
    for (std::size_t at = 0; at < nodes.size(); ++at) {
        if (at % 1024 == 0 && cancel.load(std::memory_order_relaxed)) {
            result.cancelled = true;
            break;
        }
        const ReachState from = nodes[at].state;
        const StateKey fromKey = keyOf(from, bounds);
        const int frame = nodes[at].frame + 1;
        if (frame > bounds.frameLimit) {
            result.bounded = true;
            break;
        }
        result.frames = frame;
        const int inputCount = from.free ? kAirInputCount : static_cast<int>(std::size(kGroundInputs));
        for (int i = 0; i < inputCount; ++i) {
            const ReachInput input = kGroundInputs[i];
            world.restore(from);
            world.step(input);
            const Grevan::Player& body = world.getPlayer();
            if (body.isFree() && body.getY() > level.getLowestBottom()) {
                continue;  // falling past everything
            }
            ReachWorld::forSpansStoodOn(level, body, [&](int span) {
                if (arrivals[span].parent < 0) {
                    arrivals[span] = Arrival{static_cast<int>(at), input};
                }
            });
            const ReachState next = world.capture();
            const StateKey key = keyOf(next, bounds);
            // Holding the same keys, the player may stay within one step of rounding for a few
            // frames (a slow start, the top of a jump): those frames are followed, or it would
            // never leave; a change of keys there counts as a new state only once.
            const bool stays = input == from.held && key == fromKey && !isSameMotion(next, from) &&
                               nodes[at].stay < bounds.stayLimit;
            if (!stays && !seen.admit(key, next, bounds)) {
                continue;
            }
            if (nodes.size() >= static_cast<std::size_t>(bounds.stateLimit)) {
                result.bounded = true;
                continue;
            }
            nodes.push_back(Node{next, static_cast<int>(at), input, frame, stays ? nodes[at].stay + 1 : 0});
        }
    }
    result.states = static_cast<int>(nodes.size());
    for (std::size_t span = 0; span < arrivals.size(); ++span) {
        ReachSpanResult found{level.getSpans()[span], arrivals[span].parent >= 0, {}};
        if (found.reachable) {
            found.witness = witnessOf(nodes, arrivals[span]);
        }
        result.spans.push_back(std::move(found));
    }
    player = world.release();
    return result;
}

std::vector<ReachPoint> ReachAnalysis::trace(const ReachLevel& level, ReachPoint start,
                                             const ReachWitness& witness) {
    ReachWorld world(level, std::move(player));
    world.restore(world.startAt(start.x, start.y));
    std::vector<ReachPoint> feet;
    for (const ReachInput& input : witness) {
        world.step(input);
        feet.push_back(
            ReachPoint{ReachWorld::feetX(world.getPlayer()), ReachWorld::feetY(world.getPlayer())});
    }
    player = world.release();
    return feet;
}
