#include "chords/ChordResources.h"

namespace tessaly {

// Degree 1..7, seventeen columns each: the triad in four octaves, the three
// whole-chord codes, the two sentinels.
const char* const kDegreeMapText =
    "\r\n"
    "0,4,7,12,16,19,24,28,31,36,40,43,65,72,79,254,255,"
    "2,5,9,14,17,21,26,29,33,38,41,45,66,73,80,254,255,"
    "4,7,11,16,19,23,28,31,35,40,43,47,67,74,81,254,255,"
    "5,9,12,17,21,24,29,33,36,41,45,48,68,75,82,254,255,"
    "7,11,14,19,23,26,31,35,38,43,47,50,69,76,83,254,255,"
    "9,12,16,21,24,28,33,36,40,45,48,52,70,77,84,254,255,"
    "11,14,17,23,26,29,35,38,41,47,50,53,71,78,85,254,255"
    "\r\n";

// Types 1..3 (low, centre, high), rows 1..7, notes 1..3.
const char* const kVoicingTableText =
    "7,12,16,9,14,17,11,16,19,12,17,21,14,19,23,16,21,24,17,23,26,"
    "12,16,19,14,17,21,16,19,23,17,21,24,19,23,26,21,24,28,23,26,31,"
    "16,19,24,17,21,26,19,23,28,21,24,29,23,26,31,24,28,33,26,31,35";

// The figures a new pattern file starts with, then two empty lines.
const char* const kPatternFileText =
    "LC------LC------\r\nLGWCWEWGLCKCKEKG\r\nWC------WC------\r\nWC--WE--WG--WC--\r\n"
    "WG--KC--KE--KG--\r\nKG--KE--KC--WG--\r\nWC--WG--KC--WG--\r\nWE--WG--LC--WG--\r\n"
    "XZMCHGHEHGHEHCKG\r\nLG--WCWE--WGLC--\r\nLC--LCLE--LGLC--\r\nWC--LGLELGLC----\r\n"
    "LG--WC--LG--WC--\r\nLG--WC--LE--LC--\r\nCL------WG--WC--\r\nCM------WG--WE--\r\n"
    "WGKCKEKGKCKEKGHC\r\nLGWCLGWCLEWCLEWC\r\nLELCLGLCLELELCLC\r\nLGLELCLGLGLEWCLG\r\n"
    "KCXZ----WCXZ----\r\nWEXZ----KCKEKG--\r\nKC--KGKEKC--KC--\r\nCC------CL------\r\n"
    "LC------LG------\r\nLG------LC------\r\nWCWEWGWEWGKCWGWE\r\nKC--KE--KG--KE--\r\n"
    "KGHCKGKELCLELGLE\r\nLG--WC--LC--LE--\r\nKCKEKGKEKGHCKGKE\r\nCC--LE--LG--LE--\r\n"
    "CCWCLCLECCWEWGKC\r\nCC--KC--KE--KG--\r\nCCLELGWCCCWCLGLE\r\nWG--WE--KC--WG--\r\n"
    "KE--KE--WG--WG--\r\nLG--LG--WC--WC--\r\nWE--LC--LG--WC--\r\nLC------LG------\r\n"
    "LE------LC------\r\nCC--WG--KC--WG--\r\nCCWGLCWGCCKGHCKG\r\nCCLEKGHCCLHCKGHC\r\n"
    "CCLGCLLGCCLGCLLG\r\nWC--WE--WG--WC--\r\nCC------CM------\r\nCC--WE--WG--WC--\r\n"
    "KC--KGKEKC--KC--\r\nKE------WC--WG--\r\nCC--LG--WC--WE--\r\nCC--WC--WG--WE--\r\n"
    "CL----------LG--\r\nLGWEWCLGWGWCWEWC\r\nWC--LG--WE--WC--\r\nCM------CM------\r\n"
    "KC--KE--KG--KC--\r\nCL--KE--CL--KC--\r\nCM------CM------\r\nKCWGKEKCCCWGKCWG\r\n"
    "WE--WG--LC--WG--\r\nCM------CM------\r\nWG--KC--KG--KE--\r\nCC------WG--KC--\r\n"
    "KG------KE------\r\nWG------LG------\r\nWC------WC------\r\nLG------LG------\r\n"
    "CC------CM------\r\nLG--WC--WG--WE--\r\nCCWGKGKEKCWGKCKE\r\nWC------WE--WC--\r\n"
    "WC------WG------\r\nWC--XZ--WG--WC--\r\nCCWGKCKECCKCKGKE\r\nCC--WE--WG--KC--\r\n"
    "CC--KC--WG--WE--\r\nCC----WEWG------\r\nCC----KCWG------\r\nCC------CL--CL--\r\n"
    "WG--KC--KG--KE--\r\nCCWGKCKECCWGKCKE\r\nCC------CC------\r\nKC--KE--KG--KC--\r\n"
    "CC------WGKC----\r\nCC--KC--WGWE----\r\nCC--WG--KC--KE--\r\nCC--KC--KE--KG--\r\n"
    "KCXZCCKCKCXZCC--\r\nKCKCKCCCHC--CCKG\r\nWG--KC--KG--KE--\r\nCC----KGKG--XZ--\r\n"
    "CC--KG--WC--KG--\r\nCC----KGKG--XZ--\r\nCC--KG----KGKG--\r\nCL----WG----WCWE\r\n"
    "CL------WGWE----\r\nWG--KC--KG--WGWG\r\nKE--KG--KE--KC--\r\nCC--WE--CC--KC--\r\n"
    "CC--WE--CC--KC--\r\nWG--KC--KG--KE--\r\nKC--KE--KG--KC--\r\nCCLGLCCCLGLCCCCC\r\n"
    "CC--CC--CC--CC--\r\nLG--WE--WG--WC--\r\nCC--KGKG--XZCC--\r\nKGKG------KGKG--\r\n"
    "CC------CC------\r\nCM------CM------\r\nCL------CL------\r\nCCLELGLELGWCLGLE\r\n"
    "LGWCWEWCWGWELGWC\r\n"
    "\r\n";

}  // namespace tessaly
