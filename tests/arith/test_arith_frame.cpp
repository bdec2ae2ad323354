// The call frame of every element-wise arithmetic member: null pointers, then lengths, then the
// member's own parameters, in the documented order (with the documented exceptions), and an
// error leaves every output untouched, the in-place vector included.
#include <climits>

#include "testutil.hpp"

namespace {

template <class T>
T nonzero() {
    if constexpr (std::is_arithmetic_v<T>)
        return T(1);
    else
        return T{1, 1};
}

template <class T>
using Out = vt::Marked<T>;
const int kBadLengths[] = {0, -1, INT_MIN};

// Two sources (the second may be a constant) and a destination: pointers before lengths.
template <class A, class B, class D, class... X>
void frame_vv(VekStatus (*f)(const A*, const B*, D*, int, X...)) {
    const A a[4]{};
    const B b[4]{};
    Out<D> d;
    EXPECT_EQ(f(nullptr, b, d.v, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, nullptr, d.v, 4, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, b, nullptr, 4, X{}...), vekStsNullPointerErr);
    for (int len : kBadLengths) EXPECT_EQ(f(a, b, d.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}
template <class T, class... X>
void frame_vc(VekStatus (*f)(const T*, T, T*, int, X...)) {
    const T s[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, nonzero<T>(), d.v, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(s, nonzero<T>(), nullptr, 4, X{}...), vekStsNullPointerErr);
    for (int len : kBadLengths) EXPECT_EQ(f(s, nonzero<T>(), d.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}
// In place: one source (or constant) and the vector updated.
template <class A, class D, class... X>
void frame_vi(VekStatus (*f)(A, D*, int, X...)) {
    const std::remove_const_t<std::remove_pointer_t<A>> a[4]{};
    A src{};
    if constexpr (std::is_pointer_v<A>)
        src = a;
    else
        src = nonzero<A>();
    Out<D> sd;
    if constexpr (std::is_pointer_v<A>) {
        EXPECT_EQ(f(nullptr, sd.v, 0, X{}...), vekStsNullPointerErr);
    }
    EXPECT_EQ(f(src, nullptr, 0, X{}...), vekStsNullPointerErr);
    for (int len : kBadLengths) EXPECT_EQ(f(src, sd.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(sd.untouched());
}

// Complex integer Add and Sub: the length is tested before the pointers.
template <class T, class... X>
void frame_vv_len(VekStatus (*f)(const T*, const T*, T*, int, X...)) {
    const T a[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, nullptr, nullptr, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(nullptr, a, d.v, -1, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(nullptr, a, d.v, 4, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, a, nullptr, 4, X{}...), vekStsNullPointerErr);
    EXPECT_TRUE(d.untouched());
}
template <class T, class... X>
void frame_vi_len(VekStatus (*f)(const T*, T*, int, X...)) {
    const T a[4]{};
    Out<T> sd;
    EXPECT_EQ(f(nullptr, nullptr, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(a, sd.v, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(nullptr, sd.v, 4, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, nullptr, 4, X{}...), vekStsNullPointerErr);
    EXPECT_TRUE(sd.untouched());
}

// DivC_32f / DivC_64f: the constant first.
template <class T>
void frame_divc_f(VekStatus (*f)(const T*, T, T*, int), VekStatus (*fi)(T, T*, int)) {
    const T s[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, T(0), nullptr, 0), vekStsDivideByZeroErr);
    EXPECT_EQ(f(s, T(-0.0), d.v, 4), vekStsDivideByZeroErr);
    EXPECT_EQ(f(nullptr, T(2), d.v, 0), vekStsNullPointerErr);
    EXPECT_EQ(f(s, T(2), d.v, 0), vekStsDataSizeErr);
    EXPECT_EQ(fi(T(0), nullptr, 0), vekStsDivideByZeroErr);
    EXPECT_EQ(fi(T(0), d.v, 4), vekStsDivideByZeroErr);
    EXPECT_EQ(fi(T(2), nullptr, 0), vekStsNullPointerErr);
    EXPECT_EQ(fi(T(2), d.v, 0), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}

// DivC of integer and complex types: pointers, length, then the constant.
template <class T, class... X>
void frame_divc(VekStatus (*f)(const T*, T, T*, int, X...), VekStatus (*fi)(T, T*, int, X...)) {
    const T s[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, T{}, d.v, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(s, T{}, d.v, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(s, T{}, d.v, 4, X{}...), vekStsDivideByZeroErr);
    EXPECT_EQ(fi(T{}, nullptr, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(fi(T{}, d.v, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(fi(T{}, d.v, 4, X{}...), vekStsDivideByZeroErr);
    EXPECT_TRUE(d.untouched());
}

template <class T>
void frame_abs_i(VekStatus (*f)(T*, int)) {
    Out<T> sd;
    EXPECT_EQ(f(nullptr, 0), vekStsNullPointerErr);
    for (int len : kBadLengths) EXPECT_EQ(f(sd.v, len), vekStsDataSizeErr);
    EXPECT_TRUE(sd.untouched());
}

#define VEK_CHECK_EACH(check, ...) vt::each([](auto f) { check(f); }, __VA_ARGS__)

TEST(ArithFrame, TwoVectorsAndConstants) {
    VEK_CHECK_EACH(frame_vv, veksAdd_16s, veksAdd_16s32f, veksAdd_16s_Sfs, veksAdd_16u, veksAdd_32f,
                   veksAdd_32fc, veksAdd_32s_Sfs, veksAdd_32u, veksAdd_64f, veksAdd_64fc,
                   veksAdd_8u16u, veksAdd_8u_Sfs, veksDiv_16s_Sfs, veksDiv_16sc_Sfs, veksDiv_32f,
                   veksDiv_32fc, veksDiv_64f, veksDiv_64fc, veksDiv_8u_Sfs, veksMul_16s,
                   veksMul_16s32f, veksMul_16s32s_Sfs, veksMul_16s_Sfs, veksMul_16sc_Sfs,
                   veksMul_16u16s_Sfs, veksMul_32f, veksMul_32fc, veksMul_32s_Sfs, veksMul_32sc_Sfs,
                   veksMul_64f, veksMul_64fc, veksMul_8u16u, veksMul_8u_Sfs, veksSub_16s,
                   veksSub_16s32f, veksSub_16s_Sfs, veksSub_32f, veksSub_32fc, veksSub_32s_Sfs,
                   veksSub_64f, veksSub_64fc, veksSub_8u_Sfs);
    VEK_CHECK_EACH(frame_vc, veksAddC_16s_Sfs, veksAddC_16sc_Sfs, veksAddC_32f, veksAddC_32fc,
                   veksAddC_32s_Sfs, veksAddC_32sc_Sfs, veksAddC_64f, veksAddC_64fc,
                   veksAddC_8u_Sfs, veksMulC_16s_Sfs, veksMulC_16sc_Sfs, veksMulC_32f,
                   veksMulC_32fc, veksMulC_32s_Sfs, veksMulC_32sc_Sfs, veksMulC_64f, veksMulC_64fc,
                   veksMulC_8u_Sfs, veksSubCRev_16s_Sfs, veksSubCRev_16sc_Sfs, veksSubCRev_32f,
                   veksSubCRev_32fc, veksSubCRev_32s_Sfs, veksSubCRev_32sc_Sfs, veksSubCRev_64f,
                   veksSubCRev_64fc, veksSubCRev_8u_Sfs, veksSubC_16s_Sfs, veksSubC_16sc_Sfs,
                   veksSubC_32f, veksSubC_32fc, veksSubC_32s_Sfs, veksSubC_32sc_Sfs, veksSubC_64f,
                   veksSubC_64fc, veksSubC_8u_Sfs);
}
TEST(ArithFrame, InPlace) {
    VEK_CHECK_EACH(
        frame_vi, veksAbs_16s, veksAbs_32f, veksAbs_64f, veksAdd_16s_I, veksAdd_16s_ISfs,
        veksAdd_32f_I, veksAdd_32fc_I, veksAdd_32s_ISfs, veksAdd_64f_I, veksAdd_64fc_I,
        veksAdd_8u_ISfs, veksDiv_16s_ISfs, veksDiv_16sc_ISfs, veksDiv_32f_I, veksDiv_32fc_I,
        veksDiv_64f_I, veksDiv_64fc_I, veksDiv_8u_ISfs, veksMul_16s_I, veksMul_16s_ISfs,
        veksMul_16sc_ISfs, veksMul_32f_I, veksMul_32fc_I, veksMul_32s_ISfs, veksMul_32sc_ISfs,
        veksMul_64f_I, veksMul_64fc_I, veksMul_8u_ISfs, veksSub_16s_I, veksSub_16s_ISfs,
        veksSub_32f_I, veksSub_32fc_I, veksSub_32s_ISfs, veksSub_64f_I, veksSub_64fc_I,
        veksSub_8u_ISfs, veksAddC_16s_I, veksAddC_16s_ISfs, veksAddC_16sc_ISfs, veksAddC_32f_I,
        veksAddC_32fc_I, veksAddC_32s_ISfs, veksAddC_32sc_ISfs, veksAddC_64f_I, veksAddC_64fc_I,
        veksAddC_8u_ISfs, veksMulC_16s_I, veksMulC_16s_ISfs, veksMulC_16sc_ISfs, veksMulC_32f_I,
        veksMulC_32fc_I, veksMulC_32s_ISfs, veksMulC_32sc_ISfs, veksMulC_64f_I, veksMulC_64fc_I,
        veksMulC_8u_ISfs, veksSubCRev_16s_ISfs, veksSubCRev_16sc_ISfs, veksSubCRev_32f_I,
        veksSubCRev_32fc_I, veksSubCRev_32s_ISfs, veksSubCRev_32sc_ISfs, veksSubCRev_64f_I,
        veksSubCRev_64fc_I, veksSubCRev_8u_ISfs, veksSubC_16s_I, veksSubC_16s_ISfs,
        veksSubC_16sc_ISfs, veksSubC_32f_I, veksSubC_32fc_I, veksSubC_32s_ISfs, veksSubC_32sc_ISfs,
        veksSubC_64f_I, veksSubC_64fc_I, veksSubC_8u_ISfs);
    VEK_CHECK_EACH(frame_abs_i, veksAbs_16s_I, veksAbs_32f_I, veksAbs_64f_I);
}
TEST(ArithFrame, ComplexIntegerAddSubTestLengthFirst) {
    VEK_CHECK_EACH(frame_vv_len, veksAdd_16sc_Sfs, veksAdd_32sc_Sfs, veksSub_16sc_Sfs,
                   veksSub_32sc_Sfs);
    VEK_CHECK_EACH(frame_vi_len, veksAdd_16sc_ISfs, veksAdd_32sc_ISfs, veksSub_16sc_ISfs,
                   veksSub_32sc_ISfs);
}
TEST(ArithFrame, DivisionByConstant) {
    frame_divc_f(veksDivC_32f, veksDivC_32f_I);
    frame_divc_f(veksDivC_64f, veksDivC_64f_I);
    frame_divc(veksDivC_16s_Sfs, veksDivC_16s_ISfs);
    frame_divc(veksDivC_16sc_Sfs, veksDivC_16sc_ISfs);
    frame_divc(veksDivC_32fc, veksDivC_32fc_I);
    frame_divc(veksDivC_64fc, veksDivC_64fc_I);
    frame_divc(veksDivC_8u_Sfs, veksDivC_8u_ISfs);
}

// A zero constant: the destination is zero-filled; the source is neither read nor checked.
TEST(ArithFrame, DivCRev16u) {
    Vek16u s[4] = {1, 2, 0, 4}, d[4] = {9, 9, 9, 9};
    EXPECT_EQ(veksDivCRev_16u(nullptr, 0, d, 4), vekStsOk);
    for (Vek16u x : d) EXPECT_EQ(x, 0);
    Out<Vek16u> o;
    EXPECT_EQ(veksDivCRev_16u(s, 0, nullptr, 4), vekStsNullPointerErr);
    EXPECT_EQ(veksDivCRev_16u(nullptr, 0, o.v, 0), vekStsDataSizeErr);
    EXPECT_EQ(veksDivCRev_16u(nullptr, 7, o.v, 4), vekStsNullPointerErr);
    EXPECT_EQ(veksDivCRev_16u(s, 7, nullptr, 0), vekStsNullPointerErr);
    EXPECT_EQ(veksDivCRev_16u(s, 7, o.v, -2), vekStsDataSizeErr);
    EXPECT_TRUE(o.untouched());
    EXPECT_EQ(veksDivCRev_16u(s, 7, d, 4), vekStsDivZeroWrn);
    EXPECT_TRUE(vt::starts_with(d, {7, 4, 65535, 2})); // 3.5 to even; 1.75
    EXPECT_EQ(veksDivCRev_16u_I(0, nullptr, 4), vekStsNullPointerErr);
    EXPECT_EQ(veksDivCRev_16u_I(0, o.v, 0), vekStsDataSizeErr);
    EXPECT_EQ(veksDivCRev_16u_I(7, o.v, 0), vekStsDataSizeErr);
    EXPECT_TRUE(o.untouched());
    EXPECT_EQ(veksDivCRev_16u_I(0, s, 4), vekStsOk);
    for (Vek16u x : s) EXPECT_EQ(x, 0);
}

// AddC_8u with sf 0 and a zero constant is the identity (both forms).
TEST(ArithFrame, AddC8uIdentity) {
    const Vek8u s[3] = {0, 7, 255};
    Vek8u d[3] = {1, 1, 1}, sd[3] = {3, 4, 5};
    EXPECT_EQ(veksAddC_8u_Sfs(s, 0, d, 3, 0), vekStsOk);
    EXPECT_EQ(std::memcmp(d, s, 3), 0);
    EXPECT_EQ(veksAddC_8u_ISfs(0, sd, 3, 0), vekStsOk);
    EXPECT_EQ(sd[2], 5);
    EXPECT_EQ(veksAddC_8u_Sfs(s, 1, d, 3, -8), vekStsOk); // nonzero sums saturate
    EXPECT_TRUE(vt::starts_with(d, {255, 255}));
}

} // namespace
