"""python3 -m kelutv_station."""

import sys

from kelutv_station.program import main

sys.exit(main())
