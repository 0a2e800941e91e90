#include "suitefiles/demo/word_lists.h"

namespace suitefiles::demo {

namespace {

constexpr std::string_view kAdjectives[] = {
    "A-1",      "Advanced",    "All Seasons", "American",  "Apex",        "Best",     "Blue Ox",   "Central",   "Century",      "Choice",
    "Classic",  "Coastal",     "Colonial",    "Corner",    "County",      "Crystal",  "Custom",    "Diamond",   "Dynamic",      "Eagle",
    "Eastside", "Elite",       "Empire",      "Evergreen", "Executive",   "Family",   "First",     "Five Star", "Four Seasons", "Gateway",
    "General",  "Global",      "Golden",      "Granite",   "Great Lakes", "Harbor",   "Heartland", "Heritage",  "Hometown",     "Horizon",
    "Imperial", "Independent", "Interstate",  "Lakeside",  "Landmark",    "Liberty",  "Lone Pine", "Majestic",  "Metro",        "Midwest",
    "Modern",   "Mutual",      "National",    "Northern",  "Northstar",   "Oakwood",  "Pioneer",   "Pinnacle",  "Precision",    "Premier",
    "Prime",    "Quality",     "Rapid",       "Regal",     "Reliable",    "Republic", "Riverside", "Royal",     "Select",       "Sentinel",
    "Silver",   "Southside",   "Sterling",    "Summit",    "Superior",    "Trinity",  "Twin City", "Union",     "United",       "Universal",
    "Valley",   "Victory",     "Viking",      "Westside",  "Wildwood"};

constexpr std::string_view kNouns[] = {"Acres",  "Commons", "Corners", "Court",   "Crossing", "Estates", "Gardens", "Glen",
                                       "Grove",  "Heights", "Hill",    "Landing", "Manor",    "Meadows", "Oaks",    "Park",
                                       "Place",  "Plaza",   "Point",   "Ridge",   "Run",      "Shores",  "Square",  "Terrace",
                                       "Towers", "Trails",  "Valley",  "View",    "Village",  "Woods"};

constexpr std::string_view kTrades[] = {
    "Apartments",   "Auto Body",   "Auto Parts",  "Bakery",       "Bank",           "Bar & Grill",  "Bookstore",    "Builders",
    "Cafe",         "Car Wash",    "Catering",    "Chiropractic", "Church",         "Cleaners",     "Clinic",       "Coffee",
    "Construction", "Dairy",       "Day Care",    "Deli",         "Dental",         "Diner",        "Distributing", "Electric",
    "Electronics",  "Engineering", "Farms",       "Fitness",      "Florist",        "Foods",        "Furniture",    "Garage",
    "Grocery",      "Hardware",    "Health Care", "Homes",        "Hotel",          "Insurance",    "Jewelers",     "Landscaping",
    "Laundry",      "Law Office",  "Leasing",     "Liquors",      "Lumber",         "Machine Shop", "Management",   "Manufacturing",
    "Marine",       "Market",      "Medical",     "Mortgage",     "Motel",          "Motors",       "Nursery",      "Office Supply",
    "Optical",      "Outfitters",  "Packaging",   "Painting",     "Pet Supply",     "Pharmacy",     "Photo",        "Pizza",
    "Printing",     "Products",    "Properties",  "Realty",       "Recycling",      "Rentals",      "Restaurant",   "Roofing",
    "Salon",        "School",      "Seed & Feed", "Shoes",        "Sporting Goods", "Storage",      "Supply",       "Systems",
    "Tavern",       "Tire",        "Tool & Die",  "Towing",       "Townhomes",      "Transport",    "Travel",       "Trucking",
    "Upholstery",   "Veterinary"};

constexpr std::string_view kForms[] = {"Inc", "Inc.", "LLC", "Co.", "Corp.", "Ltd."};

}  // namespace

Words CompanyAdjectives() { return kAdjectives; }
Words CompanyNouns() { return kNouns; }
Words CompanyTrades() { return kTrades; }
Words CompanyForms() { return kForms; }

}  // namespace suitefiles::demo
