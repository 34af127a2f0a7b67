# SPDX-License-Identifier: MIT
# Draws the library beside the fastest of its peers, from the CSV file `csv` into the SVG file `chart`.
data = chart . ".dat"
system(sprintf("awk -F, -f bench/imaging/chart.awk '%s' > '%s'", csv, data))
stats data using 2 nooutput
rows = STATS_records

set terminal svg size 900, 24 * rows + 120 font "sans-serif,12" background "white"
set output chart
set logscale x
set xrange [10:60000]
set xlabel "Mpixel/s (logarithmic)"
set yrange [rows - 0.4:-0.6] noreverse
set yrange [-0.6:rows - 0.4] reverse
set ytics nomirror scale 0
set xtics nomirror
set grid xtics lc rgb "#dddddd"
set border 3 lc rgb "#888888"
set key above left horizontal samplen 1
set style fill solid noborder
plot data using (10):($0 - 0.16):(10):2:($0 - 0.31):($0 - 0.01):ytic(1) with boxxyerror lc rgb "#2166ac" title "ksimaging", \
     data using (10):($0 + 0.16):(10):3:($0 + 0.01):($0 + 0.31) with boxxyerror lc rgb "#bbbbbb" title "fastest peer", \
     data using 3:($0 + 0.16):4 with labels left offset 0.5, 0 font ",9" tc rgb "#555555" notitle
