#include "suitefiles/demo/word_lists.h"

namespace suitefiles::demo {

namespace {

constexpr std::string_view kMen[] = {
    "James",    "Robert",   "John",    "Michael", "David",   "William", "Richard",  "Joseph",   "Thomas",    "Christopher", "Charles",
    "Daniel",   "Matthew",  "Anthony", "Mark",    "Donald",  "Steven",  "Andrew",   "Paul",     "Joshua",    "Kenneth",     "Kevin",
    "Brian",    "George",   "Timothy", "Ronald",  "Jason",   "Edward",  "Jeffrey",  "Ryan",     "Jacob",     "Gary",        "Nicholas",
    "Eric",     "Jonathan", "Stephen", "Larry",   "Justin",  "Scott",   "Brandon",  "Benjamin", "Samuel",    "Gregory",     "Alexander",
    "Patrick",  "Frank",    "Raymond", "Jack",    "Dennis",  "Jerry",   "Tyler",    "Aaron",    "Jose",      "Adam",        "Nathan",
    "Henry",    "Zachary",  "Douglas", "Peter",   "Kyle",    "Noah",    "Ethan",    "Jeremy",   "Christian", "Walter",      "Keith",
    "Austin",   "Roger",    "Terry",   "Sean",    "Gerald",  "Carl",    "Dylan",    "Harold",   "Jordan",    "Jesse",       "Bryan",
    "Lawrence", "Arthur",   "Gabriel", "Bruce",   "Logan",   "Billy",   "Joe",      "Alan",     "Juan",      "Elijah",      "Willie",
    "Albert",   "Wayne",    "Randy",   "Mason",   "Vincent", "Liam",    "Roy",      "Bobby",    "Caleb",     "Bradley",     "Russell",
    "Lucas",    "Eugene",   "Philip",  "Carlos",  "Luis",    "Martin",  "Curtis",   "Oscar",    "Clarence",  "Earl",        "Antonio",
    "Victor",   "Leonard",  "Norman",  "Miguel",  "Glenn",   "Marcus",  "Theodore", "Clifford", "Stanley",   "Leo",         "Francis",
    "Fred",     "Ernest",   "Howard",  "Lloyd",   "Ivan",    "Hector",  "Gordon",   "Max",      "Karl",      "Ole",         "Lars",
    "Erik",     "Sven",     "Dale",    "Duane",   "Marvin",  "Melvin",  "Milton",   "Warren",   "Wesley",    "Calvin",      "Clayton",
    "Felix",    "Hugo",     "Jorge",   "Andrés",  "René",    "Chad",    "Derek",    "Evan",     "Grant",     "Ian",         "Joel",
    "Kurt",     "Neil",     "Ross",    "Todd",    "Troy"};

constexpr std::string_view kWomen[] = {
    "Mary",      "Patricia",  "Jennifer", "Linda",    "Elizabeth", "Barbara", "Susan",    "Jessica",    "Karen",    "Sarah",
    "Lisa",      "Nancy",     "Sandra",   "Betty",    "Ashley",    "Emily",   "Kimberly", "Margaret",   "Donna",    "Michelle",
    "Carol",     "Amanda",    "Melissa",  "Deborah",  "Stephanie", "Rebecca", "Sharon",   "Laura",      "Cynthia",  "Dorothy",
    "Amy",       "Kathleen",  "Angela",   "Shirley",  "Emma",      "Brenda",  "Pamela",   "Nicole",     "Anna",     "Samantha",
    "Katherine", "Christine", "Debra",    "Rachel",   "Carolyn",   "Janet",   "Maria",    "Olivia",     "Heather",  "Helen",
    "Catherine", "Diane",     "Julie",    "Victoria", "Joyce",     "Lauren",  "Kelly",    "Christina",  "Ruth",     "Joan",
    "Virginia",  "Judith",    "Evelyn",   "Hannah",   "Andrea",    "Megan",   "Cheryl",   "Jacqueline", "Madison",  "Teresa",
    "Abigail",   "Sophia",    "Martha",   "Sara",     "Gloria",    "Janice",  "Kathryn",  "Ann",        "Isabella", "Judy",
    "Charlotte", "Julia",     "Grace",    "Amber",    "Alice",     "Jean",    "Denise",   "Frances",    "Danielle", "Marilyn",
    "Natalie",   "Beverly",   "Diana",    "Brittany", "Theresa",   "Kayla",   "Alexis",   "Doris",      "Lori",     "Tiffany",
    "Rose",      "Ellen",     "Paula",    "Wendy",    "Bonnie",    "Peggy",   "Irene",    "Lillian",    "Lorraine", "Marie",
    "Robin",     "Sylvia",    "Connie",   "Eleanor",  "Gail",      "Holly",   "Ida",      "June",       "Kristin",  "Leah",
    "Lucy",      "Marcia",    "Naomi",    "Norma",    "Phyllis",   "Rita",    "Sally",    "Sheila",     "Tammy",    "Tina",
    "Valerie",   "Vivian",    "Yvonne",   "Zoe",      "Astrid",    "Ingrid",  "Solveig",  "Guadalupe",  "Carmen",   "Rosa",
    "Elena",     "Lucía",     "Renée",    "Zoë",      "Beth",      "Claire",  "Erin",     "Heidi",      "Jill",     "Kay",
    "Lynn",      "Mae",       "Nora",     "Opal",     "Pearl",     "Ruby"};

}  // namespace

Words MenNames() { return kMen; }
Words WomenNames() { return kWomen; }

}  // namespace suitefiles::demo
