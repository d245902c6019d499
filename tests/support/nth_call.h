// One kind of call, of which the n-th fails.
#pragma once

namespace support {

class NthCall {
public:
    // The n-th call from here on fails, the first being 1; with `andAfter` all that follow fail, too.
    void failAt(int n, bool andAfter = false)
    {
        left = n;
        stays = andAfter;
        hit = false;
    }
    void letThrough() { left = 0; } // all calls from here on

    // Asked at each call: does this one fail?
    bool strikes()
    {
        if (left == 0 || --left > 0)
            return false;
        if (stays)
            left = 1;
        hit = true;
        return true;
    }

    bool struck() const { return hit; } // since failAt

private:
    int left = 0;
    bool stays = false;
    bool hit = false;
};

} // namespace support
