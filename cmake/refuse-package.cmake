message(FATAL_ERROR "The package holds the manual, which takes Doxygen 1.9.4 and Python 3: install them and configure anew.")
