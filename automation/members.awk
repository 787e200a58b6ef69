# Reads quarvel.idl, the one list of the members, and writes to the file OUT what WANT names:
#   table         the rows of the table of late-bound calls (members.cpp)
#   declarations  the members of the COM object (lp_model_object.h)
#   page          docs/members.md
#   python        the rows of the list that the module for Python has (python/component/bindings.cpp)
# The page also has what members_notes.txt says of each member: numbers, errors, an example.
# A member without a help text or, for the page, without a note and example, and one of a type that is not in
# the lists below, is an error.
#   awk -v WANT=page -v OUT=members.md -f members.awk quarvel.idl

BEGIN {
  # type of the interface | C++ | argument in the table | result in the table | words
  Type("long", "LONG", "kLong", "VT_I4", "32-bit integer")
  Type("short", "SHORT", "kShort", "VT_I2", "16-bit integer")
  Type("double", "DOUBLE", "kDouble", "VT_R8", "double")
  Type("VARIANT_BOOL", "VARIANT_BOOL", "kBoolean", "VT_BOOL", "boolean")
  Type("BSTR", "BSTR", "kText", "VT_BSTR", "string")
  Type("VARIANT", "VARIANT", "kVariant", "VT_VARIANT", "variant")
  Type("double*", "DOUBLE*", "kWrittenDouble", "", "double by reference")
  Type("VARIANT_BOOL*", "VARIANT_BOOL*", "kBooleanRef", "", "boolean by reference")
  Type("BSTR*", "BSTR*", "kTextRef", "", "string by reference")
  Type("VARIANT*", "VARIANT*", "kVariantRef", "", "variant by reference")
  Type("SAFEARRAY(double)*", "SAFEARRAY**", "kWrittenArray", "", "array of double by reference")

  # attribute | name of the C++ member starts with | kind in the table | word
  Kind("", "", "kCall", "method")
  Kind("propget", "get_", "kGet", "get")
  Kind("propput", "put_", "kLet", "let")
  Kind("propputref", "putref_", "kSet", "set")
  printf "" >OUT
  if (WANT == "page") {
    ReadNotes("members_notes.txt")
    PageHead()
  }
}

function Type(name, in_cxx, as_argument, as_result, words) {
  cxx[name] = in_cxx; argument[name] = as_argument; result_type[name] = as_result; word[name] = words
}

function Kind(attribute, start, in_table, words) {
  prefix[attribute] = start; kind_name[attribute] = in_table; kind_word[attribute] = words
}

function Fail(what) {
  print FILENAME ": " what >"/dev/stderr"
  failed = 1
  exit 1
}

/^  interface / { inside = 1; next }
/^  };/ { inside = 0 }
!inside { next }
/^    \/\/ --- .* ---$/ { if (WANT == "page") PageHeading(substr($0, 12, length($0) - 15)); next }
/^    \/\/\/ / { help = help (help == "" ? "" : " ") substr($0, 9); next }
/^ *\/\// || /^  {/ { next }
{ sub(/^ +/, declaration == "" ? "" : " "); declaration = declaration $0 }
/;$/ { Member(declaration); declaration = help = "" }

END {
  if (failed) exit 1
  if (WANT == "page") {
    PageDetails()
    for (key in note) if (!(key in told)) { print "members_notes.txt: no member " key >"/dev/stderr"; exit 1 }
  }
  if (count == 0) { print "members.awk: no members in " FILENAME >"/dev/stderr"; exit 1 }
}

# One member: "[attributes] HRESULT Name(arguments);"
function Member(text, attributes, name, list, parts, i) {
  i = index(text, "] HRESULT ")
  attributes = substr(text, 2, i - 2)
  text = substr(text, i + 10)
  name = substr(text, 1, index(text, "(") - 1)
  list = substr(text, length(name) + 2)
  sub(/\);$/, "", list)
  if (!match(attributes, /id\(0x[0-9A-F]+\)/)) Fail(name " has no identifier")
  id = substr(attributes, RSTART + 3, RLENGTH - 4)
  kind = match(attributes, /^prop[a-z]+/) ? substr(attributes, 1, RLENGTH) : ""
  if (match(attributes, /helpstring\(".*"\)/)) help = substr(attributes, RSTART + 12, RLENGTH - 14)
  if (help == "") Fail(name " has no help text")
  in_table = in_cxx = in_words = in_python = result = ""
  arguments = split(list, parts, /, \[/)
  for (i = 1; i <= arguments; ++i) Argument(name, parts[i])
  ++count
  if (WANT == "table") {
    printf "{%s, %s, L\"%s\", %s, {%s}},\n", id, kind_name[kind], name,
      result == "" ? "VT_VOID" : result_type[result], in_table >OUT
  } else if (WANT == "declarations") {
    printf "STDMETHODIMP %s%s(%s) override;\n", prefix[kind], name, in_cxx >OUT
  } else if (WANT == "python") {
    printf "{\"%s\", \"%s\", \"%s\", \"%s\", \"%s\"},\n", name, kind_word[kind], in_python, result, help >OUT
  } else {
    printf "| `%s` | %s | `%s` | %s | %s | %s |\n", name, kind_word[kind], id,
      in_words == "" ? "-" : in_words, result == "" ? "-" : word[result], help >OUT
    Detail(name, kind_word[kind])
  }
}

# One argument: "directions] type name"
function Argument(member, text, directions, words, type) {
  directions = substr(text, 1, index(text, "]") - 1)
  split(substr(text, length(directions) + 3), words, " ")
  type = words[1]
  if (!(type in cxx) && !(directions ~ /retval/)) Fail(member " takes the unknown type " type)
  if (directions ~ /retval/) {
    result = substr(type, 1, length(type) - 1)
    if (!(result in cxx)) Fail(member " gives the unknown type " type)
    in_cxx = in_cxx (in_cxx == "" ? "" : ", ") cxx[result] "* " words[2]
    return
  }
  in_cxx = in_cxx (in_cxx == "" ? "" : ", ") cxx[type] " " words[2]
  in_table = in_table (in_table == "" ? "" : ", ") "{L\"" words[2] "\", " \
    (directions ~ /only read/ ? "kReadArray" : argument[type]) "}"
  in_words = in_words (in_words == "" ? "" : ", ") words[2] " " word[type]
  sub(/\*$/, "", type)
  in_python = in_python (in_python == "" ? "" : ", ") type " " words[2]
}

function PageHead() {
  print "# The members of Quarvel.LPModel\n" >OUT
  print "In the order of the interface, which never changes. Made from" >OUT
  print "[automation/quarvel.idl](../automation/quarvel.idl) by `cmake --build build/linux --target members_page`;" >OUT
  print "[The page of the component](component.md) tells how to call them and what their errors are.\n" >OUT
  print "A *get* is the read of a property, a *let* its write, a *set* its write of an object; a *method* is an" >OUT
  print "ordinary call. The new value of a property is its last argument.\n" >OUT
  print "All numbers of rows, columns and elements start at 0. Each member has an example in VBScript, which a test runs with" >OUT
  print "this before it; what an example prints stands behind `'>`. `folder` is a folder to write in.\n" >OUT
  while ((getline line < "members_model.vbs") > 0) lines = lines line "\n"
  if (lines == "") Fail("members_model.vbs is not there")
  printf "```vb\n%s```\n", lines >OUT
}

# The notes by "NAME KIND": the words, and the example without its indent.
function ReadNotes(file, line, key) {
  while ((getline line < file) > 0) {
    if (line ~ /^#/ || line == "") continue
    if (line ~ /^= /) key = substr(line, 3)
    else if (line ~ /^    /) example[key] = example[key] substr(line, 5) "\n"
    else note[key] = note[key] line "\n"
  }
  close(file)
}

# What the section that is being printed will tell below its table.
function Detail(name, kind, key) {
  key = name " " kind
  if (!(key in note) || !(key in example)) Fail("members_notes.txt has nothing about " key)
  told[key] = 1
  details = details "\n### " name ", " kind "\n\n" note[key] "\n```vb\n" example[key] "```\n"
}

function PageDetails() {
  printf "%s", details >OUT
  details = ""
}

function PageHeading(title) {
  PageDetails()
  printf "\n## %s\n\n", title >OUT
  print "| Member | Kind | Identifier | Arguments | Result | What it does |" >OUT
  print "|---|---|---|---|---|---|" >OUT
}
