# Draws a moment of the short-crested sea over the whole basin. Needs the variable `folder`.
set terminal pngcairo size 1400,900 font "DejaVu Sans,12"
set output folder."/surface.png"
set datafile separator ","
sea = folder."/surface_sea.csv"

stats sea nonuniform matrix using 3 nooutput name "S_"
s = S_max > -S_min ? S_max : -S_min
set palette defined (-1 "#053061", -0.5 "#4393c3", 0 "#f7f7f7", 0.5 "#d6604d", 1 "#67001f")
set cbrange [-s:s]
set cblabel "surface (m)"
set xlabel "from the paddles (m)"
set ylabel "across the basin (m)"
set xrange [0:30]
set yrange [0:20]
set size ratio -1
set title "Short-crested sea at 100 s; the ridge lies between the lines, its crest on the dashed one"
set style arrow 1 nohead front lc rgb "#404040"
set arrow from 8,0 to 8,20 as 1
set arrow from 20,0 to 20,20 as 1
set arrow from 14,0 to 14,20 nohead front lc rgb "#404040" dt 2
plot sea nonuniform matrix using 1:2:3 with image notitle
