// The data of a page. `kelpbox` writes it into the page as JSON; schema/page.schema.json says the
// same for other programs. SI units; angles in radians, anticlockwise from +x, the direction a wave
// travels to. A number that is not finite is null.

// An array of numbers as 16-bit counts: number = count * step, and count -32768 stands for NaN.
// `data` is base64 of the zlib stream ("deflate" of browsers) of the counts: first the low bytes of
// all counts, then their high bytes. The last axis of `shape` varies fastest. Along the axis
// `differences`, each count but the first is the difference to the one before, modulo 2^16; -1 for
// none.
export interface Packed {
  shape: number[];
  step: number;
  differences: number;
  data: string;
}

export interface PageData {
  schema: 1;
  summary: Summary; // of summary.json, without change
  job: string; // contents of job.toml
  log: string; // contents of log.txt, without its middle if it is long
  drive: BankSignals[]; // empty if the run wrote no signals
  points: PointSeries[]; // empty if the run wrote none; same order as summary.points
  field?: Field;
}

// Signals of one bank, as they go to the machine. Thinned: the sample i was sample i * every of the
// run, and the row r is the paddle with index paddles[r] of the bank (from 0). The worst paddles are
// among them.
export interface BankSignals {
  bank: number; // from 0: index in summary.drive.banks and summary.plan.banks
  rate: number; // Hz, of the samples here
  every: number;
  paddles: number[];
  signals: Packed; // [paddle][sample], rad or m
  spectrum: { df: number; first: number; amplitude: Packed }; // [paddle][harmonic], element j is of
  // the frequency (first + j) * df in Hz
  // Of every paddle of the bank over all samples, in order of their index.
  highest: number[];
  lowest: number[];
  velocity: number[]; // greatest absolute rate of change, per s
}

export interface PointSeries {
  rate: number; // Hz, of the samples here
  every: number;
  eta: Packed; // [sample], m
  // Variance density in m2/Hz at first * df, (first + 1) * df, ... of the record, in bands of
  // harmonics if there are many.
  spectrum?: { df: number; first: number; density: Packed };
}

export interface Axis {
  from: number; // m
  step: number;
  count: number;
}

// The wave field, thinned to what a page can hold. The frame i was frame first + i * every.time of
// `of.frames` frames of the run; point (j, k) was point (j * every.x, k * every.y).
export interface Field {
  x: Axis;
  y: Axis;
  start: number; // s, of frame 0 here
  rate: number; // Hz, of the frames here
  first: number;
  every: { time: number; x: number; y: number };
  of: { frames: number; rate: number; x: number; y: number };
  eta: Packed; // [frame][y][x], m
  lowest: number; // m, over all frames of the run
  highest: number;
  stills: Still[];
}

// One frame in more detail.
export interface Still {
  key: 'crest' | 'steepness'; // why: the highest crest, the steepest slope
  frame: number; // of the run
  t: number; // s
  at: { x: number; y: number }; // m, where it is
  value: number; // m, or slope (1)
  x: Axis;
  y: Axis;
  eta: Packed; // [y][x], m
}

export interface Summary {
  kelpbox: string;
  compiler: string;
  title: string;
  site: { name: string; tank: string; identity: string; file?: string };
  plan?: Plan;
  run: {
    repeat: number;
    lowest_harmonic: number;
    highest_harmonic: number;
    side_walls: boolean;
    fronts: number;
  };
  seas: SummarySea[];
  spectrum?: SeaSpectrum;
  directions?: Directions;
  drive?: {
    rate: number;
    samples: number;
    ramp: number;
    stop_at_limit: boolean;
    banks: SummaryBank[];
  };
  points: SummaryPoint[];
  field?: { rate: number; frames: number; x: Axis; y: Axis; lowest: number; highest: number; remarks: string[] };
  judged: number;
  looks: number;
  findings: Finding[];
  remarks: string[];
  inputs: SummaryFile[];
  files?: SummaryFile[];
}

export interface SummarySea {
  name: string;
  sentence?: string; // "jonswap, hs 80 mm, tp 1.6 s, gamma 3.3; cos2s, s 10, angle 15 deg"
  holds: { x: number; y: number; t: number };
  waves: string[];
  fronts: number;
}

export interface SummaryBank {
  name: string;
  units: 'rad' | 'm';
  paddles: number;
  maximum: number | null;
  minimum: number | null;
  clip_limit: number | null;
}

export interface SummaryPoint {
  name: string;
  x: number;
  y: number;
  rate: number;
  samples: number;
  delta_angle: number;
  statistics: Record<string, { value: number | null; units: string }>;
  remarks: string[];
}

export interface SummaryFile {
  name: string;
  bytes: number;
  sha256: string;
}

export interface Finding {
  group: string; // "sea", "lost", "machine", "waves"
  key: string;
  quantity: string;
  units: string;
  asked: number | null;
  made: number | null;
  asked_text: string;
  made_text: string;
  criterion: string;
  verdict: 'good' | 'look' | null;
  remark: string;
  minor: boolean;
}

// The tank from above. The depth depends on x alone, and is joined by straight lines.
export interface Plan {
  x: [number, number];
  y: [number | null, number | null]; // null where the site gives no wall
  walls: 'none' | 'plus' | 'minus' | 'both' | 'flume';
  profile: { x: number[]; depth: number[] };
  banks: {
    name: string;
    machine: 'flap' | 'piston';
    paddle_width: number;
    paddles: { number: number[]; x: number[]; y: number[]; angle: number[] }; // angle of the normal
    // into the water
  }[];
}

// At the place of the first sea. Values are means over bands of `harmonics` harmonics.
export interface SeaSpectrum {
  at: { x: number; y: number };
  harmonics: number;
  f: number[]; // Hz, middle of each band
  made: (number | null)[]; // m2/Hz
  asked?: (number | null)[]; // m2/Hz; absent if no density was asked for
  lines: { f: number; a: number }[]; // sine waves that were asked for, at most 200
}

// Variance by frequency and direction, where the first sea holds. Sectors are 5 degrees wide, about
// multiples of 5 degrees.
export interface Directions {
  f: number[]; // Hz, edges: one more than rows
  angle: number[]; // rad, edges: one more than columns, over a full circle
  variance: (number | null)[][]; // m2, [f][angle]
  asked?: (number | null)[]; // m2 in each sector, over all frequencies
}
