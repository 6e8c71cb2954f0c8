# Turns the names of values, types, C functions and methods in backticks into doxygen's links.
s/`((KELU|CMD|CMDID|CIDMD|SOC_TV|E_MW)_[A-Z0-9_]+)`/#\1/g
s/`(linux_tv_[A-Za-z0-9_]+)(\(\))?`/#\1()/g
s/`(android::[A-Za-z]*TVBase[A-Za-z]+::[A-Za-z]+)(\(\))?`/#\1()/g
s/`([A-Z][A-Za-z0-9]+::[A-Za-z0-9]+)(\(\))?`/#\1()/g
# These are words before they are classes.
/^ *\*|\/\*\*/s/(^|[ ("])(Audio|Picture|Factory)([ ,.;)]|: |$)/\1%\2\3/g
