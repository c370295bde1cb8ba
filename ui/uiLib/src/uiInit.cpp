// Registration of the library's packages.
namespace Zr {
int zrUiLibraryVersion() { return 1; }
} // namespace Zr
