#pragma once

#include <string>

#include "suitefiles/demo/world.h"

namespace suitefiles::demo {

/// A name as a customer's record holds it: a company has a last name alone.
struct Name {
  std::string last;
  std::string first;
  std::string title;
};

std::string MakeSurname(const World& world, Random& random);
Name MakePerson(const World& world, Random& random);
/// At most 30 characters.
Name MakeCompany(const World& world, Random& random, const City& city);

/// Two lines of at most 30 characters; the second one is often empty.
struct Street {
  std::string line1;
  std::string line2;
};
Street MakeStreet(const World& world, Random& random, bool company);

/// Five digits, or nine with a dash.
std::string MakeZip(const City& city, Random& random);

}  // namespace suitefiles::demo
