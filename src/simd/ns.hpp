// Code in headers that kernel sources include is compiled once per instruction-set level. Inline
// functions and templates of such headers live in `inline namespace VEK_PER_ISA`, so that each
// level gets its own symbols and the linker never folds an AVX2 copy into the scalar path.
// (Kernel sources avoid out-of-line standard-library templates for the same reason.)
#pragma once

#ifdef VEK_ISA
#define VEK_PER_ISA VEK_ISA
#else
#define VEK_PER_ISA portable
#endif
