#include "comparison/alignment.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

using Elements = std::span<const std::uint64_t>;

constexpr std::int32_t Unreached = -1;

// As many differences are looked for at first, and in each piece of sequences that have more.
constexpr std::int32_t FewDifferences = 1000;
constexpr std::int32_t FewInAPiece = 200;

// A piece of both sequences, as [first, behind the last).
struct Piece {
    std::int32_t firstA = 0;
    std::int32_t endA = 0;
    std::int32_t firstB = 0;
    std::int32_t endB = 0;
    std::int32_t CountA() const { return endA - firstA; }
    std::int32_t CountB() const { return endB - firstB; }
};

struct Split {
    std::int32_t a = 0;
    std::int32_t b = 0;
    bool isBest = true;  // on a way with the fewest differences
};

std::uint64_t At(Elements elements, std::int32_t index) {
    return elements[static_cast<std::size_t>(index)];
}

// How far one gets from one end of a piece, by the difference of both indexes: a front of Myers' search.
class Front {
public:
    explicit Front(std::int32_t most) : reach(2 * static_cast<std::size_t>(most) + 3, Unreached), middle(most + 1) {}

    std::int32_t& At(std::int32_t diagonal) {
        const std::int32_t place = middle + diagonal;
        return reach[static_cast<std::size_t>(place)];
    }

    // With one difference more. `same` tells whether two elements, counted from this end, are equal.
    template <class Same>
    std::int32_t Advance(std::int32_t diagonal, const Piece& piece, bool isFirst, const Same& same) {
        std::int32_t a = isFirst ? 0 : Unreached;
        const std::int32_t before = At(diagonal - 1);
        if (before != Unreached && before < piece.CountA()) a = before + 1;
        const std::int32_t above = At(diagonal + 1);
        if (above != Unreached && above - diagonal <= piece.CountB()) a = std::max(a, above);
        if (a == Unreached || a - diagonal < 0) return At(diagonal) = Unreached;
        while (a < piece.CountA() && a - diagonal < piece.CountB() && same(a, a - diagonal)) ++a;
        return At(diagonal) = a;
    }

    // The point that lies farthest from the end.
    Split Farthest(std::int32_t differences) {
        Split best;
        for (std::int32_t diagonal = -differences; diagonal <= differences; ++diagonal) {
            const std::int32_t a = At(diagonal);
            if (a != Unreached && 2 * a - diagonal > best.a + best.b) best = {a, a - diagonal, false};
        }
        return best;
    }

private:
    std::vector<std::int32_t> reach;
    std::int32_t middle;
};

// Myers, from both ends. A piece begins and ends with a difference on both sides, so the answer is neither of its ends.
Split FindSplit(Elements a, Elements b, const Piece& piece, std::int32_t most) {
    const std::int32_t delta = piece.CountA() - piece.CountB();
    const bool odd = delta % 2 != 0;
    most = std::min(most, (piece.CountA() + piece.CountB() + 1) / 2);
    Front forward(most);
    Front backward(most);
    const auto sameForward = [&](std::int32_t i, std::int32_t j) {
        return At(a, piece.firstA + i) == At(b, piece.firstB + j);
    };
    const auto sameBackward = [&](std::int32_t i, std::int32_t j) {
        return At(a, piece.endA - 1 - i) == At(b, piece.endB - 1 - j);
    };
    const auto meets = [&](Front& other, std::int32_t diagonal, std::int32_t reached, std::int32_t differences) {
        const std::int32_t mirrored = delta - diagonal;
        if (reached == Unreached || mirrored < -differences || mirrored > differences) return false;
        const std::int32_t across = other.At(mirrored);
        return across != Unreached && reached + across >= piece.CountA();
    };
    for (std::int32_t d = 0; d <= most; ++d) {
        for (std::int32_t diagonal = -d; diagonal <= d; diagonal += 2) {
            const std::int32_t reached = forward.Advance(diagonal, piece, d == 0, sameForward);
            if (odd && meets(backward, diagonal, reached, d - 1)) return {reached, reached - diagonal};
        }
        for (std::int32_t diagonal = -d; diagonal <= d; diagonal += 2) {
            const std::int32_t reached = backward.Advance(diagonal, piece, d == 0, sameBackward);
            if (!odd && meets(forward, diagonal, reached, d)) {
                return {piece.CountA() - reached, piece.CountB() - (reached - diagonal)};
            }
        }
    }
    const Split fromFront = forward.Farthest(most);
    const Split fromBack = backward.Farthest(most);
    if (fromFront.a + fromFront.b >= fromBack.a + fromBack.b) return fromFront;
    return {piece.CountA() - fromBack.a, piece.CountB() - fromBack.b, false};
}

class Alignment {
public:
    Alignment(Elements sequenceA, Elements sequenceB)
        : a(sequenceA), b(sequenceB), partner(sequenceA.size(), Unreached) {}

    std::vector<std::int32_t> Run();

private:
    void PairEnds(Piece& piece);
    void PairAll(const Piece& piece);
    void PairUnalike(const Piece& piece);

    Elements a;
    Elements b;
    std::vector<std::int32_t> partner;
};

std::vector<std::int32_t> Alignment::Run() {
    Piece whole{0, static_cast<std::int32_t>(a.size()), 0, static_cast<std::int32_t>(b.size())};
    PairEnds(whole);
    if (whole.CountA() == 0 || whole.CountB() == 0) return partner;
    if (FindSplit(a, b, whole, FewDifferences).isBest) {
        PairAll(whole);
    } else {
        PairUnalike(whole);
    }
    return partner;
}

void Alignment::PairEnds(Piece& piece) {
    while (piece.CountA() > 0 && piece.CountB() > 0 && At(a, piece.firstA) == At(b, piece.firstB)) {
        partner[static_cast<std::size_t>(piece.firstA++)] = piece.firstB++;
    }
    while (piece.CountA() > 0 && piece.CountB() > 0 && At(a, piece.endA - 1) == At(b, piece.endB - 1)) {
        partner[static_cast<std::size_t>(--piece.endA)] = --piece.endB;
    }
}

void Alignment::PairAll(const Piece& whole) {
    std::vector<Piece> left = {whole};
    while (!left.empty()) {
        Piece piece = left.back();
        left.pop_back();
        PairEnds(piece);
        if (piece.CountA() == 0 || piece.CountB() == 0) continue;
        const Split split = FindSplit(a, b, piece, FewInAPiece);
        left.push_back({piece.firstA, piece.firstA + split.a, piece.firstB, piece.firstB + split.b});
        left.push_back({piece.firstA + split.a, piece.endA, piece.firstB + split.b, piece.endB});
    }
}

// What the other side does not have can have no partner; without it there is less to search.
struct Common {
    std::vector<std::uint64_t> elements;
    std::vector<std::int32_t> places;

    Common(Elements own, std::int32_t first, std::int32_t end, const std::unordered_set<std::uint64_t>& others) {
        for (std::int32_t i = first; i < end; ++i) {
            if (!others.contains(At(own, i))) continue;
            elements.push_back(At(own, i));
            places.push_back(i);
        }
    }
};

void Alignment::PairUnalike(const Piece& piece) {
    const std::unordered_set<std::uint64_t> ofA(a.begin() + piece.firstA, a.begin() + piece.endA);
    const std::unordered_set<std::uint64_t> ofB(b.begin() + piece.firstB, b.begin() + piece.endB);
    const Common commonA(a, piece.firstA, piece.endA, ofB);
    const Common commonB(b, piece.firstB, piece.endB, ofA);
    Alignment among(commonA.elements, commonB.elements);
    among.PairAll(
        {0, static_cast<std::int32_t>(commonA.places.size()), 0, static_cast<std::int32_t>(commonB.places.size())});
    for (std::size_t i = 0; i < commonA.places.size(); ++i) {
        if (among.partner[i] == Unreached) continue;
        partner[static_cast<std::size_t>(commonA.places[i])] =
            commonB.places[static_cast<std::size_t>(among.partner[i])];
    }
}

}  // namespace

std::vector<std::int32_t> Align(std::span<const std::uint64_t> a, std::span<const std::uint64_t> b) {
    return Alignment(a, b).Run();
}
