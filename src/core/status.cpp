// Status messages. The texts are part of the interface and are reproduced exactly, including
// their spelling; codes that share a text return the same stored string.
#include "core/frame.hpp"
#include "veks_core.h"

namespace {
constexpr const char* kNotEnoughMemory = "Not enough memory for the operation";
constexpr const char* kJpegMarker = "JPEG marker was met in the bitstream";
constexpr const char* kDcStream = "Illegal code while DC stream processing";
constexpr const char* kVlcStream = "Illegal Huffman code while VLC stream processing";
constexpr const char* kMvStream = "Illegal Huffman code while MV stream processing";
constexpr const char* kUnknown = "Unknown Status Code";
} // namespace

VEK_EXPORT const char* vekGetStatusString(VekStatus status) {
    switch (status) {
    case 0: return "No error, it's ok";
    case 1: return "No operation has been executed";
    case 2: return "Misaligned pointer in operation in which must be aligned";
    case 3: return "Negative value(s) of argument in the function Sqrt";
    case 4: return "INF result. Zero value was met by InvThresh with zero level";
    case 5: return "Even size of Median Filter mask was replaced by odd one";
    case 6: return "Zero value(s) of divisor in the function Div";
    case 7: return "Zero value(s) of argument in the Ln function";
    case 8: return "Negative value(s) of argument in the Ln function";
    case 9: return "Not a Number argument value warning";
    case 10: return kJpegMarker;
    case 11: return "All result values are floored";
    case 12: return "An overflow occurred in the operation";
    case 13:
        return "Quantized LP syntethis filter stability check is applied at the low boundary of "
               "[0,pi]";
    case 14:
        return "Quantized LP syntethis filter stability check is applied at the high boundary of "
               "[0,pi]";
    case 15:
        return "Quantized LP syntethis filter stability check is applied at both boundaries of "
               "[0,pi]";
    case 16: return "Zero occupation count";
    case 17: return "An underflow occurred in the operation";
    case 18: return "A singularity occurred in the operation";
    case 19: return "Argument is out of function domain";
    case -2: return "Unknown/unspecified error";
    case -4: return kNotEnoughMemory;
    case -5: return "Function arg/param is bad";
    case -6: return "Wrong value of data size";
    case -7: return "Bad values of bounds: the low bound is greater than a high bound";
    case -8: return "Null pointer error";
    case -9: return kNotEnoughMemory;
    case -10: return "An attempt to divide by zero";
    case -11: return "Argument is out of range or point is outside the image";
    case -12: return "Bad or unsupported data type";
    case -13: return "Scale bounds is out of range";
    case -14: return "Step value is less or equal zero";
    case -15: return "Invalid value of the FFT order parameter";
    case -16: return "Invalid value of the FFT flag parameter";
    case -17: return "The context parameter doesn't match to the operation";
    case -18: return "Invalid treshold bounds";
    case -19: return "Negative value of the level in the threshold operation";
    case -20: return "Moment value M(0,0) is too small to continue calculation";
    case -21: return "Invalid flip mode";
    case -22: return "Invalid interpolation mode";
    case -23: return "Resize factor(s) less or equal to zero";
    case -24: return "Invalid value of the delay line sample index";
    case -25: return "The order of IIR is less or equal zero";
    case -26: return "The number iterations of FIR is less or equal zero";
    case -27: return "Relative frequency value is out of range";
    case -28: return "Wrong value of the MR FIR sampling phase parameter";
    case -29: return "Wrong value of the MR FIR sampling factor parameter";
    case -30: return "Phase value is out of range: 0 <= phase < factor";
    case -31: return "Sampling factor is less or equal zero";
    case -32: return "Value of shift is less than zero";
    case -33: return "Invalid mask size";
    case -34: return "The anchor point is outside mask";
    case -35: return "Invalid offset value of wavelet filter";
    case -36: return "Negative epsilon value error";
    case -37: return "The stride value is less than the row length";
    case -38: return "Magnitude value is negative";
    case -39: return "Kaiser window is too huge";
    case -40: return "The asymmetry of the Triangle is less -PI or greater or equal PI";
    case -41: return "The phase of the Triangle is less 0 or greater or equal 2*PI";
    case -42: return "The frequency of the Triangle is less 0 or greater or equal 0.5";
    case -43: return "The magnitude of the Triangle is less or equal to zero";
    case -44: return "The phase of the Tone is less 0 or greater or equal 2*PI";
    case -45: return "The frequency of the Tone is less 0 or greater or equal 0.5";
    case -46: return "The magnitude of the Tone is less or equal to zero";
    case -47: return "Illegal channel number";
    case -48: return "Sum of the ToGray converion coefficients must be less or equal to 1";
    case -49: return "Gamma range bounds is less or equal zero";
    case -50: return "Illegal type of image compositing operation";
    case -51: return "Divisor is equal zero, function is aborted";
    case -52: return "COI is out of range";
    case -53: return "Bad or unsupported number of channels";
    case -54: return "Number of dithering levels is out of range";
    case -55: return "Bad value of noise amplitude for dithering";
    case -56: return "Unallowable values of the transformation coefficients";
    case -57: return "Size of the rectangle region is less or equal to the one";
    case -58: return "The quadrangle degenerates into triangle, line or point";
    case -59: return "All values of the mask are zero";
    case -60: return "Wrong order of the destination channels";
    case -61: return "System error in the draw text operation";
    case -62: return kJpegMarker;
    case -63: return "JPEG DCT coefficient out of range";
    case -64: return "JPEG Huffman table destroyed";
    case -65: return "No sonvergence of SVD algorithm";
    case -66: return "Incorrect value of the codebook flag parameter";
    case -67: return "Negative occupation count";
    case -69: return "Filter bank is not correctly initialized";
    case -70: return "Incorrect value of the filter bank parameter";
    case -71: return "Incorrect value of the filter bank frequency parameter";
    case -72: return "The zigzag compact length is more then 64";
    case -73: return kDcStream;
    case -74: return kVlcStream;
    case -75: return kMvStream;
    case -76: return "The quantizer value is less or qual to zero or more then 31";
    case -77: return "The plane step is less then plane width";
    case -78: return "The expand pixels number is less then 8";
    case -79: return "The frame height is less or equal to zero";
    case -80: return "The frame width is less then 8";
    case -81: return "The step value is less than 16";
    case -82: return "The step value is less than 8";
    case -83: return "Prediction Mode value error";
    case -90: return "Incorrect DC linear mode";
    case -91: return "Incorrect video component mode";
    case -92: return "Incorrect number of bits per pixel";
    case -93: return "Incorrect prediction direction";
    case -94: return "All BAB values are zero";
    case -95: return "Incorrect size of block or macroblock";
    case -96: return "Incorrect temporal difference";
    case -97: return "Incorrect buffer alignment";
    case -98: return "Incorrect fcode value";
    case -99: return kDcStream;
    case -100: return kVlcStream;
    case -101: return kMvStream;
    case -102: return "Incorrect block type";
    case -103: return "Incorrect block index";
    case -104: return "Incorrect quantization parameter";
    case -105: return "Incorrect bit offset value";
    case -106: return "Number of levels for LUT is less than 2";
    case -107: return "Number of levels for histogram is less than 2";
    case -108: return "The step value is not pixel multiple";
    case -9998: return "The target cpu is not supported";
    case -9999: return "The requested mode is currently not supported";
    default: return kUnknown;
    }
}
