# The header is written to be read as it stands. Two things in it Doxygen would not show as they stand:
# it drops a percent sign that no quotation marks surround, and ends a code span at an apostrophe unless its backticks
# are doubled.
s/'%'/'\\%'/g
s/`([^`]*'[^`]*)`/``\1``/g
