// A library that brings down whoever loads it: it stands for one that a damaged file brings down.
#include <csignal>

namespace {

struct Falls {
    Falls() { std::raise(SIGKILL); }
};
const Falls falls;

}   // namespace
