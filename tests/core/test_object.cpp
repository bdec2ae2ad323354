// The object layer: checked access by kind, and creation that releases everything it took on
// every path (the sanitizer build's leak check sees any block left behind).
#include <gtest/gtest.h>

#include "core/kinds.hpp"
#include "core/object.hpp"

namespace {

using namespace veks;

struct Rec {
    obj::Head head;
    int32_t n;
    double* a;
    float* b;
};
struct Handle; // a caller's opaque handle type

TEST(Object, OpenChecksNullAndKind) {
    obj::Builder<Rec> b;
    ASSERT_EQ(b.status(), vekStsOk);
    ASSERT_EQ(b.alloc(b->a, 100), vekStsOk);
    b->n = 7;
    Handle* h = b.finish<Handle>(kind::iir_64f.biquad);

    EXPECT_EQ(obj::open<Rec>(static_cast<Handle*>(nullptr), kind::iir_64f.biquad).status(),
              vekStsNullPointerErr);
    EXPECT_EQ(obj::open<Rec>(h, kind::iir_64f.arbitrary).status(), vekStsContextMismatchErr);
    const auto r = obj::open<Rec>(static_cast<const Handle*>(h), kind::iir_64f.arbitrary,
                                  kind::iir_64f.biquad);
    ASSERT_EQ(r.status(), vekStsOk);
    EXPECT_EQ(r->n, 7);
    EXPECT_EQ(r->a[99], 0.0); // blocks are zero-filled
    // A record handed out by an internal creation function is the caller's handle again.
    const auto w = obj::open<Rec>(h, kind::iir_64f.biquad);
    EXPECT_EQ(obj::handle<Handle>(w.get()), h);
    EXPECT_EQ(obj::free<Rec>(h, kind::iir_64f.arbitrary), vekStsContextMismatchErr);
    EXPECT_EQ(obj::free<Rec>(h, kind::iir_64f.biquad), vekStsOk);
}

TEST(Object, UnfinishedBuilderAndRefusedSizesReleaseEverything) {
    {
        obj::Builder<Rec> b;
        ASSERT_EQ(b.alloc(b->a, 10), vekStsOk);
        EXPECT_EQ(b.alloc(b->b, 0), vekStsMemAllocErr);
        EXPECT_EQ(b.alloc(b->b, -1), vekStsMemAllocErr);
        EXPECT_EQ(b.alloc(b->b, INT64_MAX), vekStsMemAllocErr); // bytes overflow 64 bits
        EXPECT_EQ(b->b, nullptr);
        // Children: owned objects go with their parent, and one that cannot be recorded is
        // released at once.
        for (int i = 0; i <= obj::kMaxChildren; ++i) {
            obj::Builder<Rec> c;
            ASSERT_EQ(c.alloc(c->b, 3), vekStsOk);
            EXPECT_EQ(b.adopt(c.finish(kind::lms_32f)),
                      i < obj::kMaxChildren ? vekStsOk : vekStsMemAllocErr);
        }
        for (int i = 1; i < obj::kMaxParts; ++i) ASSERT_EQ(b.alloc(b->b, 1), vekStsOk);
        EXPECT_EQ(b.alloc(b->b, 1), vekStsMemAllocErr); // part table full
    }
}

} // namespace
