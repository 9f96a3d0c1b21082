message(FATAL_ERROR "The package holds the manual: install Doxygen 1.9.4 and Python 3, and configure anew")
