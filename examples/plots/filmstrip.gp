# Draws a focused group whose waves come from all sides, moment by moment. Needs the variable
# `folder`.
set terminal pngcairo size 1500,760 font "DejaVu Sans,11"
set output folder."/filmstrip.png"
set datafile separator ","
group = folder."/surface_group.csv"
array moments[6] = [18, 25, 28.5, 32, 35.5, 39]  # s, of the blocks of the file

stats group index 3 nonuniform matrix using 3 nooutput name "S_"
set palette defined (-1 "#053061", -0.5 "#4393c3", 0 "#f7f7f7", 0.5 "#d6604d", 1 "#67001f")
# The crest exceeds the range of the colours, so that the waves before and after it are visible.
s = 0.5 * S_max
set cbrange [-s:s]
set xrange [0:30]
set yrange [0:20]
set size ratio -1
set style arrow 1 nohead front lc rgb "#404040"
set arrow from 8,0 to 8,20 as 1
set arrow from 20,0 to 20,20 as 1
unset colorbox
set multiplot layout 2,3 margins 0.04,0.9,0.06,0.9 spacing 0.03,0.08 \
    title "A group with a direction for each frequency, on its way to x 12 m, y 9 m and beyond (m); \
the colours end at half the height of its crest there"
do for [i = 1:6] {
  if (i == 6) {
    set colorbox user origin 0.92,0.06 size 0.018,0.84
    set cblabel "surface (m)"
  }
  set title sprintf("%.1f s", moments[i])
  plot group index (i - 1) nonuniform matrix using 1:2:3 with image notitle
}
unset multiplot
