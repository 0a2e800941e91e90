#include "suitefiles/demo/word_lists.h"

namespace suitefiles::demo {

namespace {

constexpr std::string_view kBeginnings[] = {
    "Acker",  "Alder",  "Amber",   "Apple",  "Arden",  "Ash",    "Bach",   "Barn",  "Beck",   "Bell",  "Berg",  "Birch",  "Black",
    "Blum",   "Bold",   "Brad",    "Bran",   "Bren",   "Bridge", "Brock",  "Brook", "Buch",   "Burk",  "Cald",  "Cam",    "Carl",
    "Carn",   "Chad",   "Chester", "Clair",  "Clay",   "Cliff",  "Cob",    "Cold",  "Corn",   "Crom",  "Cross", "Dahl",   "Dal",
    "Darn",   "Dell",   "Den",     "Diet",   "Dorn",   "Drum",   "Dun",    "East",  "Eber",   "Eck",   "Edel",  "Eich",   "Elder",
    "Elling", "Ember",  "Engel",   "Erl",    "Ever",   "Fair",   "Falk",   "Farn",  "Feld",   "Fern",  "Finch", "Fitch",  "Flem",
    "Fried",  "Gar",    "Glad",    "Glen",   "Gold",   "Grant",  "Gron",   "Grun",  "Hag",    "Ham",   "Har",   "Hart",   "Hasel",
    "Haver",  "Hawk",   "Hazel",   "Heath",  "Heil",   "Hem",    "Hen",    "High",  "Hirsch", "Hol",   "Holm",  "Hom",    "Horn",
    "Hum",    "Iver",   "Kael",    "Kauf",   "Kell",   "Kess",   "Kil",    "Kings", "Kirch",  "Kling", "Knob",  "Kohl",   "Kron",
    "Lach",   "Lamb",   "Lan",     "Lark",   "Lauder", "Lind",   "Linden", "Lock",  "Long",   "Lor",   "Lund",  "Mal",    "Mar",
    "May",    "Mer",    "Mid",     "Mill",   "Mont",   "Moor",   "Nether", "Neu",   "New",    "Nord",  "North", "Oak",    "Ober",
    "Old",    "Over",   "Pad",     "Pem",    "Pender", "Pick",   "Pine",   "Pres",  "Quin",   "Rad",   "Ran",   "Raven",  "Red",
    "Rein",   "Ridge",  "Ring",    "Rock",   "Rosen",  "Roth",   "Rud",    "Rush",  "Sand",   "Schil", "Schon", "Sea",    "Shel",
    "Sher",   "Sieg",   "Silver",  "Sommer", "South",  "Spring", "Stan",   "Stein", "Sten",   "Stern", "Still", "Stock",  "Strat",
    "Suther", "Swan",   "Tan",     "Thorn",  "Tiller", "Under",  "Vander", "Wain",  "Wake",   "Wal",   "Warm",  "Water",  "Wein",
    "West",   "Wester", "Whit",    "Wild",   "Wim",    "Win",    "Winter", "Wolf",  "Wood",   "Worth", "Yard",  "Zeller", "Zimmer"};

constexpr std::string_view kEndings[] = {
    "ford",  "ton",   "ley",   "wood",  "worth", "field", "man",  "son",   "berg",   "stein", "burg",  "dale",   "ham",   "land",  "bach",
    "strom", "gren",  "quist", "haus",  "hoff",  "er",    "ers",  "ing",   "ington", "well",  "by",    "croft",  "stead", "brook", "bridge",
    "more",  "mann",  "heim",  "auer",  "inger", "wick",  "shaw", "hurst", "combe",  "ridge", "smith", "wright", "back",  "lund",  "feld",
    "thal",  "meyer", "ski",   "owski", "ek",    "sen",   "sson", "dorf",  "horn",   "ell",   "ett",   "ard",    "cott",  "den",   "born"};

}  // namespace

Words SurnameBeginnings() { return kBeginnings; }
Words SurnameEndings() { return kEndings; }

}  // namespace suitefiles::demo
