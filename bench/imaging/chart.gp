# SPDX-License-Identifier: MIT
# Draws the library beside the fastest of its peers, from the lines of chart.awk in `data` into the SVG file `chart`.
stats data using 2 nooutput
rows = STATS_records

set encoding utf8
set terminal svg size 900, 22 * rows + 110 font "sans-serif,12" background "white"
set output chart
set logscale x
set xrange [10:100000]
set xlabel "Mpixel/s (logarithmic)"
set yrange [rows - 0.4:-0.6]
set ytics nomirror scale 0 textcolor rgb "black"
set rmargin 8
set xtics nomirror textcolor rgb "black"
set grid xtics lc rgb "#dddddd"
set border 3 lc rgb "#888888"
set key above left horizontal samplen 1
set style fill solid noborder
plot data using (10):($0 - 0.16):(10):2:($0 - 0.31):($0 - 0.01):ytic(1) with boxxyerror lc rgb "#2166ac" title "ksimaging", \
     data using (10):($0 + 0.16):(10):3:($0 + 0.01):($0 + 0.31) with boxxyerror lc rgb "#bbbbbb" title "fastest peer", \
     data using 4:0:5 with labels left offset 0.5, 0 font ",9" tc rgb "#555555" notitle
