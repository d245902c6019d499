// Gives back at unload what the C++ runtime takes at load: each library has a runtime of its own, and its reserve of
// memory for exceptions, 73 kB, would otherwise stay behind each time MATLAB clears the library.
namespace __gnu_cxx {
void __freeres(); // of libstdc++, declared in no header
}

namespace {

struct RuntimeReserve {
    ~RuntimeReserve() { __gnu_cxx::__freeres(); }
};
const RuntimeReserve reserve;

} // namespace
