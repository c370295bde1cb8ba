// Keeps the library non-empty until its first classes arrive.
namespace Zr {
int zrGfxLibraryVersion() { return 1; }
} // namespace Zr
