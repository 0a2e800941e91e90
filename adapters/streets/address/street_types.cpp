#include "streets/address/street_types.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "streets/address/sound.h"

namespace streets {

namespace {

/// The post's types of street: the normal form, the word in full, then other ways to write it.
constexpr std::string_view kTypes[] = {
    "ALY ALLEY ALLEE ALLY",
    "ANX ANNEX ANEX ANNX",
    "ARC ARCADE",
    "AVE AVENUE AV AVEN AVENU AVN AVNUE AVENIDA",
    "BYU BAYOU BAYOO",
    "BCH BEACH",
    "BND BEND",
    "BLF BLUFF BLUF",
    "BLFS BLUFFS",
    "BTM BOTTOM BOT BOTTM",
    "BLVD BOULEVARD BOUL BOULV BLV BVD",
    "BR BRANCH BRNCH",
    "BRG BRIDGE BRDGE",
    "BRK BROOK",
    "BRKS BROOKS",
    "BG BURG",
    "BGS BURGS",
    "BYP BYPASS BYPA BYPAS BYPS",
    "CLLE CALLE CLL",
    "CMNO CAMINO",
    "CP CAMP CMP",
    "CYN CANYON CANYN CNYN",
    "CPE CAPE",
    "CSWY CAUSEWAY CAUSWA",
    "CTR CENTER CEN CENT CENTR CENTRE CNTER CNTR",
    "CTRS CENTERS",
    "CER CERRADA",
    "CIR CIRCLE CIRC CIRCL CRCL CRCLE",
    "CIRS CIRCLES",
    "CLF CLIFF",
    "CLFS CLIFFS",
    "CLB CLUB",
    "CMN COMMON",
    "CMNS COMMONS",
    "COR CORNER",
    "CORS CORNERS",
    "CRSE COURSE",
    "CT COURT CRT",
    "CTS COURTS",
    "CV COVE",
    "CVS COVES",
    "CRK CREEK CREK",
    "CRES CRESCENT CRSENT CRSNT",
    "CRST CREST",
    "XING CROSSING CRSSNG",
    "XRD CROSSROAD",
    "XRDS CROSSROADS",
    "CURV CURVE",
    "DL DALE",
    "DM DAM",
    "DV DIVIDE DIV DVD",
    "DR DRIVE DRIV DRV",
    "DRS DRIVES",
    "ENT ENTRADA",
    "EST ESTATE",
    "ESTS ESTATES",
    "EXPY EXPRESSWAY EXP EXPR EXPRESS EXPW",
    "EXT EXTENSION EXTN EXTNSN",
    "EXTS EXTENSIONS",
    "FALL FALL",
    "FLS FALLS",
    "FRY FERRY FRRY",
    "FLD FIELD",
    "FLDS FIELDS",
    "FLT FLAT",
    "FLTS FLATS",
    "FRD FORD",
    "FRDS FORDS",
    "FRST FOREST FORESTS",
    "FRG FORGE FORG",
    "FRGS FORGES",
    "FRK FORK",
    "FRKS FORKS",
    "FT FORT FRT",
    "FWY FREEWAY FREEWY FRWAY FRWY",
    "GDN GARDEN GARDN GRDEN GRDN",
    "GDNS GARDENS GRDNS",
    "GTWY GATEWAY GATEWY GATWAY GTWAY",
    "GLN GLEN",
    "GLNS GLENS",
    "GRN GREEN",
    "GRNS GREENS",
    "GRV GROVE GROV",
    "GRVS GROVES",
    "GULCH GULCH GLCH",
    "HBR HARBOR HARB HARBR HRBOR",
    "HBRS HARBORS",
    "HVN HAVEN",
    "HTS HEIGHTS HT HGTS",
    "HWY HIGHWAY HIGHWY HIWAY HIWY HWAY",
    "HL HILL",
    "HLS HILLS",
    "HOLW HOLLOW HLLW HOLLOWS HOLWS",
    "INLT INLET INLT",
    "IS ISLAND ISLND",
    "ISS ISLANDS ISLNDS",
    "ISLE ISLE ISLES",
    "JCT JUNCTION JCTION JCTN JUNCTN JUNCTON",
    "JCTS JUNCTIONS JCTNS",
    "KY KEY",
    "KYS KEYS",
    "KNL KNOLL KNOL",
    "KNLS KNOLLS",
    "LK LAKE",
    "LKS LAKES",
    "LAND LAND",
    "LNDG LANDING LNDNG",
    "LN LANE",
    "LGT LIGHT",
    "LGTS LIGHTS",
    "LF LOAF",
    "LCK LOCK",
    "LCKS LOCKS",
    "LDG LODGE LDGE LODG",
    "LOOP LOOP LOOPS LP",
    "MALL MALL",
    "MNR MANOR",
    "MNRS MANORS",
    "MDW MEADOW",
    "MDWS MEADOWS MEDOWS",
    "MEWS MEWS",
    "ML MILL",
    "MLS MILLS",
    "MSN MISSION MISSN MSSN",
    "MTWY MOTORWAY",
    "MT MOUNT",
    "MTN MOUNTAIN MNT MNTAIN MNTN MOUNTIN MTIN",
    "MTNS MOUNTAINS MNTNS",
    "NCK NECK",
    "ORCH ORCHARD ORCHRD",
    "OVAL OVAL OVL",
    "OPAS OVERPASS",
    "PARK PARK PRK PK",
    "PARKS PARKS",
    "PKWY PARKWAY PARKWY PKWAY PKY PKWYS PARKWAYS",
    "PASEO PASEO PSO",
    "PASS PASS",
    "PSGE PASSAGE",
    "PATH PATH PATHS",
    "PIKE PIKE PIKES",
    "PNE PINE",
    "PNES PINES",
    "PL PLACE PLC",
    "PLN PLAIN",
    "PLNS PLAINS",
    "PLZ PLAZA PLZA",
    "PT POINT PNT",
    "PTS POINTS PNTS",
    "PRT PORT",
    "PRTS PORTS",
    "PR PRAIRIE PRR",
    "PVT PRIVATE",
    "RADL RADIAL RAD RADIEL",
    "RAMP RAMP",
    "RNCH RANCH RANCHES RNCHS",
    "RPD RAPID",
    "RPDS RAPIDS",
    "RST REST",
    "RDG RIDGE RDGE",
    "RDGS RIDGES",
    "RIV RIVER RVR RIVR",
    "RD ROAD",
    "RDS ROADS",
    "RTE ROUTE RT",
    "ROW ROW",
    "RUE RUE",
    "RUN RUN",
    "SHL SHOAL",
    "SHLS SHOALS",
    "SHR SHORE SHOAR",
    "SHRS SHORES SHOARS",
    "SKWY SKYWAY",
    "SPG SPRING SPNG SPRNG",
    "SPGS SPRINGS SPNGS SPRNGS",
    "SPUR SPUR SPURS",
    "SQ SQUARE SQR SQRE SQU",
    "SQS SQUARES SQRS",
    "STA STATION STATN STN",
    "STRA STRAVENUE STRAV STRAVEN STRAVN STRVN STRVNUE",
    "STRM STREAM STREME",
    "ST STREET STR STRT",
    "STS STREETS",
    "SMT SUMMIT SUMIT SUMITT",
    "TER TERRACE TERR TERRC",
    "TRWY THROUGHWAY THRUWAY",
    "TRCE TRACE TRACES",
    "TRAK TRACK TRACKS TRK TRKS",
    "TRFY TRAFFICWAY",
    "TRL TRAIL TRAILS TRLS TR",
    "TUNL TUNNEL TUNEL TUNLS TUNNELS TUNNL",
    "TPKE TURNPIKE TRNPK TURNPK TPK",
    "UPAS UNDERPASS",
    "UN UNION",
    "UNS UNIONS",
    "VLY VALLEY VALLY VLLY",
    "VLYS VALLEYS",
    "VIA VIADUCT VDCT VIADCT",
    "VW VIEW",
    "VWS VIEWS",
    "VLG VILLAGE VILL VILLAG VILLG VILLIAGE",
    "VLGS VILLAGES",
    "VL VILLE",
    "VIS VISTA VIST VST VSTA",
    "WALK WALK WALKS WK",
    "WALL WALL",
    "WAY WAY WY",
    "WAYS WAYS",
    "WL WELL",
    "WLS WELLS",
    "XWAY EXWAY",
    "CHSE CHASE",
};

struct TypeWord {
  std::string normal;
  std::string full;
};

using Table = std::unordered_map<std::string_view, TypeWord>;

const Table& Types() {
  static const Table table = [] {
    Table made;
    for (const std::string_view row : kTypes) {
      const std::size_t first = row.find(' ');
      const std::size_t second = std::min(row.find(' ', first + 1), row.size());
      const TypeWord type{std::string(row.substr(0, first)), std::string(row.substr(first + 1, second - first - 1))};
      for (std::size_t at = 0; at < row.size();) {
        const std::size_t end = std::min(row.find(' ', at), row.size());
        made.emplace(row.substr(at, end - at), type);
        at = end + 1;
      }
    }
    return made;
  }();
  return table;
}

}  // namespace

std::string StreetType(std::string_view word) {
  const auto found = Types().find(word);
  return found == Types().end() ? "" : found->second.normal;
}

std::string StreetTypeInFull(std::string_view word) {
  const auto found = Types().find(word);
  return found == Types().end() ? std::string(word) : found->second.full;
}

std::string MisspeltStreetType(std::string_view word) {
  constexpr std::size_t kShortest = 4;
  if (word.size() < kShortest) return "";
  // Of the words in full alone, and the commonest where two are as near.
  static constexpr std::array<std::string_view, 14> kCommon = {"STREET", "AVENUE", "ROAD",    "DRIVE",     "LANE",    "COURT",   "PLACE",
                                                               "CIRCLE", "TRAIL",  "TERRACE", "BOULEVARD", "HIGHWAY", "PARKWAY", "LOOP"};
  for (const std::string_view full : kCommon)
    if (EditDistance(word, full, 1) == 1 && word.front() == full.front()) return StreetType(full);
  return "";
}

bool StandsInFront(std::string_view type) {
  static constexpr std::array<std::string_view, 14> kFront = {"AVE", "RD", "RTE", "HWY", "CLLE",  "CMNO", "ST",
                                                              "LN",  "DR", "CT",  "PL",  "PASEO", "LOOP", "SPUR"};
  return std::find(kFront.begin(), kFront.end(), type) != kFront.end();
}

}  // namespace streets
