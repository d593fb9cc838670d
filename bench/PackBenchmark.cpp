#include "bench/MBenchmarkProduct.h"
#include "bench/MComparison.h"

namespace {

constexpr int Rounds = 3;

MComparison ComparePacking(MCompression compression) {
    const MBenchmarkProduct& product = MGetPlugInProduct();
    const MScratch scratch;
    const MString output = scratch.Join("Product.run");
    const auto packWith = [&](int32_t threads) {
        return MWork{{}, [&, threads] { product.Pack(compression, threads, output); }};
    };
    MComparison comparison = MCompareSpeeds(
        Rounds, MClock::Wall, static_cast<double>(product.GetSize()) / 1e6, packWith(2), packWith(1));
    comparison.unit = "MB/s";
    comparison.goal = 1.8;
    return comparison;
}

[[maybe_unused]] const bool areRegistered =
    MRegisterComparison("Pack bzip2, 2 threads and 1", [] { return ComparePacking(MCompression::Bzip2); }) &&
    MRegisterComparison("Pack zlib, 2 threads and 1", [] { return ComparePacking(MCompression::ZLib); });

}  // namespace
