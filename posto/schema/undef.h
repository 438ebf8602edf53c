// Takes back the meanings of the words of the .def files.
#undef TABLE
#undef KEY
#undef KEY_TEXT
#undef KEY_IDENTITY
#undef IDENTITY
#undef COL
#undef TEXT
#undef REQ
#undef REQ_TEXT
#undef ZERO
#undef PROP
#undef INDEX
#undef UNIQUE
#undef INDEX_WHILE_ZERO
#undef END_TABLE
#undef SIXTEEN
