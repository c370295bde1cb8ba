// The version of the framework library, so that a client can check what it loaded.
namespace Zr {
int zrFrameworkVersion() {
    return 1;
}
} // namespace Zr
