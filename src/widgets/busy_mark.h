// Marks a model as busy for as long as it lives, whatever way out the code takes.
#pragma once

class BusyMark {
public:
    explicit BusyMark(bool& busyFlag) : flag(busyFlag) { flag = true; }
    ~BusyMark() { flag = false; }
    BusyMark(const BusyMark&) = delete;
    BusyMark& operator=(const BusyMark&) = delete;

private:
    bool& flag;
};
