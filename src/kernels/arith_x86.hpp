// Hand-written vector bodies of the hottest arithmetic kernels, included by arith_simd.cpp after
// its plain loops (which they reuse for lead-in, tails and rare scale factors). Each gives the
// plain loop's bits exactly.
#pragma once

namespace veks::kern::VEK_ISA {
namespace {

constexpr auto add_32f_fast = add_f<Vek32f>;
constexpr auto sub_32f_fast = sub_f<Vek32f>;
constexpr auto mul_32f_fast = mul_f<Vek32f>;
constexpr auto add_64f_fast = add_f<Vek64f>;
constexpr auto sub_64f_fast = sub_f<Vek64f>;
constexpr auto mul_64f_fast = mul_f<Vek64f>;
constexpr auto div_32f_fast = div_f<Vek32f>;
constexpr auto mul_32fc_fast = mul_c<Vek32fc>;
constexpr auto div_32fc_fast = div_c<Vek32fc>;
constexpr auto add_16s_sfs_fast = add_16s_sfs_plain;
constexpr auto sub_16s_sfs_fast = sub_16s_sfs_plain;
constexpr auto mul_16s_sfs_fast = mul_16s_sfs_plain;
constexpr auto mulc_16s_sfs_fast = mulc_16s_sfs_plain;

} // namespace
} // namespace veks::kern::VEK_ISA
