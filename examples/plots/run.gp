# Draws a run of the command: the drive signals of the first bank, one paddle's signal, and the wave
# at the first point. Needs the variables `folder` and `title`.
set terminal pngcairo size 1400,1000 font "DejaVu Sans,11"
set output folder.".png"
set datafile separator ","
# Without comments and heads.
rows(name) = "< grep -v '^#' '".folder."/".name."' | tail -n +2"

stats rows("drive_1.csv") matrix every 1::1 nooutput name "D_"
stats rows("drive_1.csv") using 1 nooutput name "T_"
step = (T_max - T_min) / (T_records - 1)
reach = D_max > -D_min ? D_max : -D_min
paddles = D_size_x
middle = int((paddles + 3) / 2)
# Two minutes are enough to see single waves.
end = T_max < 120 ? T_max : 120

set multiplot layout 2,2 title title
set palette defined (-1 "#2166ac", 0 "#f7f7f7", 1 "#b2182b")
set xlabel "time (s)"
set grid front
unset key

set title "Drive signals of bank 1"
set xrange [0:end]
if (paddles > 1) {
  set ylabel "paddle"
  set yrange [0.5:paddles + 0.5]
  set cbrange [-reach:reach]
  set cblabel "drive (rad or m)"
  plot rows("drive_1.csv") matrix every 1::1:0::int(end / step) using ($2 * step):1:3 with image
} else {
  set ylabel "drive (rad or m)"
  plot rows("drive_1.csv") using 1:2 with lines lw 1.2
}

set title "Drive signal of the paddle in the middle"
set yrange [*:*]
set xrange [0:T_max]
set ylabel "drive (rad or m)"
plot rows("drive_1.csv") using 1:middle with lines lw 0.8

set title "Surface at the first point"
set ylabel "elevation (mm)"
set xrange [0:end]
plot rows("point_1.csv") using 1:($2 * 1000) with lines lw 1.2

set title "Its variance density"
set xlabel "frequency (Hz)"
set ylabel "S (m^2/Hz)"
set xrange [0:2]
plot rows("spectrum_1.csv") using 1:3 with lines lw 0.8
unset multiplot
