#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

/// "insert into T in 'P' select * from S [where ...]": the rows of a table of the open database go
/// into a table of another database file.
struct CrossInsert {
  std::string target;  ///< Table in the other file, without brackets.
  std::string path;    ///< The other file, as written.
  std::string source;  ///< Table in the open database, without brackets.
  std::string where;   ///< The translated condition without "where"; empty for all rows.
};

/// A statement in the store's dialect.
struct Translation {
  std::string sql;  ///< The text to prepare.
  std::optional<CrossInsert>
      cross_insert;  ///< Set when the statement is one; `sql` cannot run then.
};

/// Turns a statement of the program's dialect into the store's. Outside quotes, brackets and
/// comments: word:word becomes a bracketed name; Yes, True, No and False become 1 and 0; the
/// reserved words Group, Index and Desc are bracketed where they are column names; #m/d/yyyy#
/// becomes 'yyyy-mm-dd'. Everything else stays as it is, faulty text too: the store refuses it.
Translation translate_statement(std::string_view statement);

}  // namespace vantrel
