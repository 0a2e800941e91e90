#include "engine/store/link_rows.h"

#include "engine/errors.h"
#include "engine/store/query.h"

namespace engine {

std::vector<StoredLink> ReadLinks(Channel& channel, std::string_view select) {
  std::vector<StoredLink> links;
  Query query(channel, select);
  while (query.Step()) links.push_back({std::string(query.Text(0)), std::string(query.Text(1)), std::string(query.Text(2))});
  return links;
}

void WriteLink(Channel& channel, std::string_view insert, const StoredLink& link) {
  Query query(channel, insert);
  query.Bind(1, std::string_view(link.name));
  query.Bind(2, std::string_view(link.path));
  query.Bind(3, std::string_view(link.source));
  try {
    query.Run();
  } catch (const platform::Error& error) {
    if (error.Number() == platform::error::number::DuplicateKey) throw errors::ObjectExists(link.name);
    throw;
  }
}

}  // namespace engine
