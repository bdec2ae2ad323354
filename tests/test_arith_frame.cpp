// The call frame of every element-wise arithmetic member: null pointers, then lengths, then the
// member's own parameters, in the documented order (with the documented exceptions), and an
// error leaves every output untouched, the in-place vector included.
#include <climits>

#include "testutil.hpp"

namespace {

// Member lists by signature and check order.
#define VEK_FRAME_VV(X)                                                                            \
    X(veksAdd_16s)                                                                                 \
    X(veksAdd_16s32f)                                                                              \
    X(veksAdd_16s_Sfs)                                                                             \
    X(veksAdd_16u)                                                                                 \
    X(veksAdd_32f)                                                                                 \
    X(veksAdd_32fc)                                                                                \
    X(veksAdd_32s_Sfs)                                                                             \
    X(veksAdd_32u)                                                                                 \
    X(veksAdd_64f)                                                                                 \
    X(veksAdd_64fc)                                                                                \
    X(veksAdd_8u16u)                                                                               \
    X(veksAdd_8u_Sfs)                                                                              \
    X(veksDiv_16s_Sfs)                                                                             \
    X(veksDiv_16sc_Sfs)                                                                            \
    X(veksDiv_32f)                                                                                 \
    X(veksDiv_32fc)                                                                                \
    X(veksDiv_64f)                                                                                 \
    X(veksDiv_64fc)                                                                                \
    X(veksDiv_8u_Sfs)                                                                              \
    X(veksMul_16s)                                                                                 \
    X(veksMul_16s32f)                                                                              \
    X(veksMul_16s32s_Sfs)                                                                          \
    X(veksMul_16s_Sfs)                                                                             \
    X(veksMul_16sc_Sfs)                                                                            \
    X(veksMul_16u16s_Sfs)                                                                          \
    X(veksMul_32f)                                                                                 \
    X(veksMul_32fc)                                                                                \
    X(veksMul_32s_Sfs)                                                                             \
    X(veksMul_32sc_Sfs)                                                                            \
    X(veksMul_64f)                                                                                 \
    X(veksMul_64fc)                                                                                \
    X(veksMul_8u16u)                                                                               \
    X(veksMul_8u_Sfs)                                                                              \
    X(veksSub_16s)                                                                                 \
    X(veksSub_16s32f)                                                                              \
    X(veksSub_16s_Sfs)                                                                             \
    X(veksSub_32f)                                                                                 \
    X(veksSub_32fc)                                                                                \
    X(veksSub_32s_Sfs)                                                                             \
    X(veksSub_64f)                                                                                 \
    X(veksSub_64fc)                                                                                \
    X(veksSub_8u_Sfs)
#define VEK_FRAME_VI(X)                                                                            \
    X(veksAdd_16s_I)                                                                               \
    X(veksAdd_16s_ISfs)                                                                            \
    X(veksAdd_32f_I)                                                                               \
    X(veksAdd_32fc_I)                                                                              \
    X(veksAdd_32s_ISfs)                                                                            \
    X(veksAdd_64f_I)                                                                               \
    X(veksAdd_64fc_I)                                                                              \
    X(veksAdd_8u_ISfs)                                                                             \
    X(veksDiv_16s_ISfs)                                                                            \
    X(veksDiv_16sc_ISfs)                                                                           \
    X(veksDiv_32f_I)                                                                               \
    X(veksDiv_32fc_I)                                                                              \
    X(veksDiv_64f_I)                                                                               \
    X(veksDiv_64fc_I)                                                                              \
    X(veksDiv_8u_ISfs)                                                                             \
    X(veksMul_16s_I)                                                                               \
    X(veksMul_16s_ISfs)                                                                            \
    X(veksMul_16sc_ISfs)                                                                           \
    X(veksMul_32f_I)                                                                               \
    X(veksMul_32fc_I)                                                                              \
    X(veksMul_32s_ISfs)                                                                            \
    X(veksMul_32sc_ISfs)                                                                           \
    X(veksMul_64f_I)                                                                               \
    X(veksMul_64fc_I)                                                                              \
    X(veksMul_8u_ISfs)                                                                             \
    X(veksSub_16s_I)                                                                               \
    X(veksSub_16s_ISfs)                                                                            \
    X(veksSub_32f_I)                                                                               \
    X(veksSub_32fc_I)                                                                              \
    X(veksSub_32s_ISfs)                                                                            \
    X(veksSub_64f_I)                                                                               \
    X(veksSub_64fc_I)                                                                              \
    X(veksSub_8u_ISfs)
#define VEK_FRAME_VV_LEN(X)                                                                        \
    X(veksAdd_16sc_Sfs)                                                                            \
    X(veksAdd_32sc_Sfs)                                                                            \
    X(veksSub_16sc_Sfs)                                                                            \
    X(veksSub_32sc_Sfs)
#define VEK_FRAME_VI_LEN(X)                                                                        \
    X(veksAdd_16sc_ISfs)                                                                           \
    X(veksAdd_32sc_ISfs)                                                                           \
    X(veksSub_16sc_ISfs)                                                                           \
    X(veksSub_32sc_ISfs)
#define VEK_FRAME_VC(X)                                                                            \
    X(veksAddC_16s_Sfs)                                                                            \
    X(veksAddC_16sc_Sfs)                                                                           \
    X(veksAddC_32f)                                                                                \
    X(veksAddC_32fc)                                                                               \
    X(veksAddC_32s_Sfs)                                                                            \
    X(veksAddC_32sc_Sfs)                                                                           \
    X(veksAddC_64f)                                                                                \
    X(veksAddC_64fc)                                                                               \
    X(veksAddC_8u_Sfs)                                                                             \
    X(veksMulC_16s_Sfs)                                                                            \
    X(veksMulC_16sc_Sfs)                                                                           \
    X(veksMulC_32f)                                                                                \
    X(veksMulC_32fc)                                                                               \
    X(veksMulC_32s_Sfs)                                                                            \
    X(veksMulC_32sc_Sfs)                                                                           \
    X(veksMulC_64f)                                                                                \
    X(veksMulC_64fc)                                                                               \
    X(veksMulC_8u_Sfs)                                                                             \
    X(veksSubCRev_16s_Sfs)                                                                         \
    X(veksSubCRev_16sc_Sfs)                                                                        \
    X(veksSubCRev_32f)                                                                             \
    X(veksSubCRev_32fc)                                                                            \
    X(veksSubCRev_32s_Sfs)                                                                         \
    X(veksSubCRev_32sc_Sfs)                                                                        \
    X(veksSubCRev_64f)                                                                             \
    X(veksSubCRev_64fc)                                                                            \
    X(veksSubCRev_8u_Sfs)                                                                          \
    X(veksSubC_16s_Sfs)                                                                            \
    X(veksSubC_16sc_Sfs)                                                                           \
    X(veksSubC_32f)                                                                                \
    X(veksSubC_32fc)                                                                               \
    X(veksSubC_32s_Sfs)                                                                            \
    X(veksSubC_32sc_Sfs)                                                                           \
    X(veksSubC_64f)                                                                                \
    X(veksSubC_64fc)                                                                               \
    X(veksSubC_8u_Sfs)
#define VEK_FRAME_CI(X)                                                                            \
    X(veksAddC_16s_I)                                                                              \
    X(veksAddC_16s_ISfs)                                                                           \
    X(veksAddC_16sc_ISfs)                                                                          \
    X(veksAddC_32f_I)                                                                              \
    X(veksAddC_32fc_I)                                                                             \
    X(veksAddC_32s_ISfs)                                                                           \
    X(veksAddC_32sc_ISfs)                                                                          \
    X(veksAddC_64f_I)                                                                              \
    X(veksAddC_64fc_I)                                                                             \
    X(veksAddC_8u_ISfs)                                                                            \
    X(veksMulC_16s_I)                                                                              \
    X(veksMulC_16s_ISfs)                                                                           \
    X(veksMulC_16sc_ISfs)                                                                          \
    X(veksMulC_32f_I)                                                                              \
    X(veksMulC_32fc_I)                                                                             \
    X(veksMulC_32s_ISfs)                                                                           \
    X(veksMulC_32sc_ISfs)                                                                          \
    X(veksMulC_64f_I)                                                                              \
    X(veksMulC_64fc_I)                                                                             \
    X(veksMulC_8u_ISfs)                                                                            \
    X(veksSubCRev_16s_ISfs)                                                                        \
    X(veksSubCRev_16sc_ISfs)                                                                       \
    X(veksSubCRev_32f_I)                                                                           \
    X(veksSubCRev_32fc_I)                                                                          \
    X(veksSubCRev_32s_ISfs)                                                                        \
    X(veksSubCRev_32sc_ISfs)                                                                       \
    X(veksSubCRev_64f_I)                                                                           \
    X(veksSubCRev_64fc_I)                                                                          \
    X(veksSubCRev_8u_ISfs)                                                                         \
    X(veksSubC_16s_I)                                                                              \
    X(veksSubC_16s_ISfs)                                                                           \
    X(veksSubC_16sc_ISfs)                                                                          \
    X(veksSubC_32f_I)                                                                              \
    X(veksSubC_32fc_I)                                                                             \
    X(veksSubC_32s_ISfs)                                                                           \
    X(veksSubC_32sc_ISfs)                                                                          \
    X(veksSubC_64f_I)                                                                              \
    X(veksSubC_64fc_I)                                                                             \
    X(veksSubC_8u_ISfs)
#define VEK_FRAME_DIVC_F(X)                                                                        \
    X(veksDivC_32f)                                                                                \
    X(veksDivC_64f)
#define VEK_FRAME_DIVC_F_I(X)                                                                      \
    X(veksDivC_32f_I)                                                                              \
    X(veksDivC_64f_I)
#define VEK_FRAME_DIVC(X)                                                                          \
    X(veksDivC_16s_Sfs)                                                                            \
    X(veksDivC_16sc_Sfs)                                                                           \
    X(veksDivC_32fc)                                                                               \
    X(veksDivC_64fc)                                                                               \
    X(veksDivC_8u_Sfs)
#define VEK_FRAME_DIVC_I(X)                                                                        \
    X(veksDivC_16s_ISfs)                                                                           \
    X(veksDivC_16sc_ISfs)                                                                          \
    X(veksDivC_32fc_I)                                                                             \
    X(veksDivC_64fc_I)                                                                             \
    X(veksDivC_8u_ISfs)
#define VEK_FRAME_ABS(X)                                                                           \
    X(veksAbs_16s)                                                                                 \
    X(veksAbs_32f)                                                                                 \
    X(veksAbs_64f)
#define VEK_FRAME_ABS_I(X)                                                                         \
    X(veksAbs_16s_I)                                                                               \
    X(veksAbs_32f_I)                                                                               \
    X(veksAbs_64f_I)

template <class T>
T nonzero() {
    if constexpr (std::is_arithmetic_v<T>)
        return T(1);
    else
        return T{1, 1};
}

// An output filled with a marker pattern, compared before and after a failing call.
template <class T>
struct Out {
    T v[4];
    Out() { std::memset(v, 0x5A, sizeof v); }
    bool untouched() const {
        const auto* p = reinterpret_cast<const unsigned char*>(v);
        for (size_t i = 0; i < sizeof v; ++i)
            if (p[i] != 0x5A) return false;
        return true;
    }
};

template <class A, class B, class D, class... X>
void frame_vv(const char* name, VekStatus (*f)(const A*, const B*, D*, int, X...)) {
    SCOPED_TRACE(name);
    const A a[4]{};
    const B b[4]{};
    Out<D> d;
    EXPECT_EQ(f(nullptr, b, d.v, 0, X{}...), vekStsNullPointerErr); // pointers before lengths
    EXPECT_EQ(f(a, nullptr, d.v, 4, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, b, nullptr, 4, X{}...), vekStsNullPointerErr);
    for (int len : {0, -1, INT_MIN}) EXPECT_EQ(f(a, b, d.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}

template <class A, class D, class... X>
void frame_vi(const char* name, VekStatus (*f)(const A*, D*, int, X...)) {
    SCOPED_TRACE(name);
    const A a[4]{};
    Out<D> sd;
    EXPECT_EQ(f(nullptr, sd.v, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, nullptr, 4, X{}...), vekStsNullPointerErr);
    for (int len : {0, -1, INT_MIN}) EXPECT_EQ(f(a, sd.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(sd.untouched());
}

// Complex integer Add and Sub: the length is tested before the pointers.
template <class T, class... X>
void frame_vv_len(const char* name, VekStatus (*f)(const T*, const T*, T*, int, X...)) {
    SCOPED_TRACE(name);
    const T a[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, nullptr, nullptr, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(nullptr, a, d.v, -1, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(nullptr, a, d.v, 4, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, a, nullptr, 4, X{}...), vekStsNullPointerErr);
    EXPECT_TRUE(d.untouched());
}
template <class T, class... X>
void frame_vi_len(const char* name, VekStatus (*f)(const T*, T*, int, X...)) {
    SCOPED_TRACE(name);
    const T a[4]{};
    Out<T> sd;
    EXPECT_EQ(f(nullptr, nullptr, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(a, sd.v, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(nullptr, sd.v, 4, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(a, nullptr, 4, X{}...), vekStsNullPointerErr);
    EXPECT_TRUE(sd.untouched());
}

template <class T, class... X>
void frame_vc(const char* name, VekStatus (*f)(const T*, T, T*, int, X...)) {
    SCOPED_TRACE(name);
    const T s[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, nonzero<T>(), d.v, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(s, nonzero<T>(), nullptr, 4, X{}...), vekStsNullPointerErr);
    for (int len : {0, -1, INT_MIN})
        EXPECT_EQ(f(s, nonzero<T>(), d.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}
template <class T, class... X>
void frame_ci(const char* name, VekStatus (*f)(T, T*, int, X...)) {
    SCOPED_TRACE(name);
    Out<T> sd;
    EXPECT_EQ(f(nonzero<T>(), nullptr, 0, X{}...), vekStsNullPointerErr);
    for (int len : {0, -1, INT_MIN})
        EXPECT_EQ(f(nonzero<T>(), sd.v, len, X{}...), vekStsDataSizeErr);
    EXPECT_TRUE(sd.untouched());
}

// DivC_32f / DivC_64f: the constant first.
template <class T>
void frame_divc_f(const char* name, VekStatus (*f)(const T*, T, T*, int)) {
    SCOPED_TRACE(name);
    const T s[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, T(0), nullptr, 0), vekStsDivideByZeroErr);
    EXPECT_EQ(f(s, T(-0.0), d.v, 4), vekStsDivideByZeroErr);
    EXPECT_EQ(f(nullptr, T(2), d.v, 0), vekStsNullPointerErr);
    EXPECT_EQ(f(s, T(2), d.v, 0), vekStsDataSizeErr);
    EXPECT_TRUE(d.untouched());
}
template <class T>
void frame_divc_f_i(const char* name, VekStatus (*f)(T, T*, int)) {
    SCOPED_TRACE(name);
    Out<T> sd;
    EXPECT_EQ(f(T(0), nullptr, 0), vekStsDivideByZeroErr);
    EXPECT_EQ(f(T(0), sd.v, 4), vekStsDivideByZeroErr);
    EXPECT_EQ(f(T(2), nullptr, 0), vekStsNullPointerErr);
    EXPECT_EQ(f(T(2), sd.v, 0), vekStsDataSizeErr);
    EXPECT_TRUE(sd.untouched());
}

// DivC of integer and complex types: pointers, length, then the constant.
template <class T, class... X>
void frame_divc(const char* name, VekStatus (*f)(const T*, T, T*, int, X...)) {
    SCOPED_TRACE(name);
    const T s[4]{};
    Out<T> d;
    EXPECT_EQ(f(nullptr, T{}, d.v, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(s, T{}, d.v, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(s, T{}, d.v, 4, X{}...), vekStsDivideByZeroErr);
    EXPECT_TRUE(d.untouched());
}
template <class T, class... X>
void frame_divc_i(const char* name, VekStatus (*f)(T, T*, int, X...)) {
    SCOPED_TRACE(name);
    Out<T> sd;
    EXPECT_EQ(f(T{}, nullptr, 0, X{}...), vekStsNullPointerErr);
    EXPECT_EQ(f(T{}, sd.v, 0, X{}...), vekStsDataSizeErr);
    EXPECT_EQ(f(T{}, sd.v, 4, X{}...), vekStsDivideByZeroErr);
    EXPECT_TRUE(sd.untouched());
}

template <class T>
void frame_abs_i(const char* name, VekStatus (*f)(T*, int)) {
    SCOPED_TRACE(name);
    Out<T> sd;
    EXPECT_EQ(f(nullptr, 0), vekStsNullPointerErr);
    for (int len : {0, -1, INT_MIN}) EXPECT_EQ(f(sd.v, len), vekStsDataSizeErr);
    EXPECT_TRUE(sd.untouched());
}

#define VEK_FRAME_CALL(check) [](auto f, const char* n) { check(n, f); }
#define VEK_CALL(F) run(F, #F);
#define VEK_CALL_I(F) run_i(F, #F);
#define VEK_CALL_CI(F) run_ci(F, #F);
#define VEK_CALL_FI(F) run_fi(F, #F);
#define VEK_CALL_C(F) run_c(F, #F);
#define VEK_CALL_CI2(F) run_c_i(F, #F);

TEST(ArithFrame, TwoVectors) {
    auto run = VEK_FRAME_CALL(frame_vv);
    VEK_FRAME_VV(VEK_CALL)
}
TEST(ArithFrame, InPlace) {
    auto run = VEK_FRAME_CALL(frame_vi);
    VEK_FRAME_VI(VEK_CALL)
    VEK_FRAME_ABS(VEK_CALL)
}
TEST(ArithFrame, ComplexIntegerAddSubTestLengthFirst) {
    auto run = VEK_FRAME_CALL(frame_vv_len);
    VEK_FRAME_VV_LEN(VEK_CALL)
    auto run_i = VEK_FRAME_CALL(frame_vi_len);
    VEK_FRAME_VI_LEN(VEK_CALL_I)
}
TEST(ArithFrame, Constants) {
    auto run = VEK_FRAME_CALL(frame_vc);
    VEK_FRAME_VC(VEK_CALL)
    auto run_ci = VEK_FRAME_CALL(frame_ci);
    VEK_FRAME_CI(VEK_CALL_CI)
}
TEST(ArithFrame, DivisionByConstant) {
    auto run = VEK_FRAME_CALL(frame_divc_f);
    VEK_FRAME_DIVC_F(VEK_CALL)
    auto run_fi = VEK_FRAME_CALL(frame_divc_f_i);
    VEK_FRAME_DIVC_F_I(VEK_CALL_FI)
    auto run_c = VEK_FRAME_CALL(frame_divc);
    VEK_FRAME_DIVC(VEK_CALL_C)
    auto run_c_i = VEK_FRAME_CALL(frame_divc_i);
    VEK_FRAME_DIVC_I(VEK_CALL_CI2)
}
TEST(ArithFrame, AbsInPlace) {
    auto run = VEK_FRAME_CALL(frame_abs_i);
    VEK_FRAME_ABS_I(VEK_CALL)
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
    EXPECT_EQ(d[0], 7);
    EXPECT_EQ(d[1], 4); // 3.5 to even
    EXPECT_EQ(d[2], 65535);
    EXPECT_EQ(d[3], 2); // 1.75
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
    EXPECT_EQ(d[0], 255);
    EXPECT_EQ(d[1], 255);
}

} // namespace
