# Draws $ratios, lines of row, routine, default ratio, baseline ratio and whether the inputs are short.
# Takes output and routines, the number of rows.
set terminal svg size 900, 120 + 20 * routines font "sans-serif,13" background rgb "white"
set output output

set title "Time of the fastest peer divided by ours: right of the line ours is faster, more is better"
set logscale x
set xtics nomirror format "%g"
set xtics (0.001, 0.002, 0.005, 0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100)
set yrange [routines - 0.4 : -0.6]
set ytics scale 0 noenhanced
set border 0
set grid xtics lw 1 lc rgb "#dddddd"
set key outside bottom center horizontal maxcols 2 Left reverse noenhanced
set lmargin 22
set arrow from first 1, graph 0 to first 1, graph 1 nohead lw 2 lc rgb "#444444" back

# Every second routine stands on a band, so that its points are found.
do for [row = 0 : routines - 1 : 2] {
    set object rectangle from graph 0, first row - 0.5 to graph 1, first row + 0.5 \
        fc rgb "#f4f4f4" fs solid noborder behind
}

default = "#d9600a"
baseline = "#8fb3d1"
plot $ratios using ($5 == 1 ? $4 : NaN):($1 + 0.2):ytic(2) with points pt 7 ps 0.6 lc rgb baseline title "baseline: short inputs", \
     $ratios using ($5 == 1 ? NaN : $4):($1 + 0.2) with points pt 6 ps 0.55 lw 1.4 lc rgb baseline title "64 bytes and more", \
     $ratios using ($5 == 1 ? $3 : NaN):($1 - 0.2) with points pt 7 ps 0.6 lc rgb default title "default build: short inputs", \
     $ratios using ($5 == 1 ? NaN : $3):($1 - 0.2) with points pt 6 ps 0.55 lw 1.4 lc rgb default title "64 bytes and more"
