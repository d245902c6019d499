// One kind of call, of which the n-th can be made to fail.
#pragma once

namespace seam {

class NthCall {
public:
    // The n-th call from here on fails, once, the first being 1. 0 lets all calls through.
    void failAt(int n)
    {
        left = n;
        hit = false;
    }

    // Asked at each call: does this one fail?
    bool strikes()
    {
        const bool strikesNow = left > 0 && --left == 0;
        hit = hit || strikesNow;
        return strikesNow;
    }

    bool struck() const { return hit; } // since failAt

private:
    int left = 0;
    bool hit = false;
};

} // namespace seam
