// The animation on paper: frames about the highest crest.
import { plainNumber } from '../drawing/axis_ticks';
import { StillCanvas } from '../drawing/still_canvas';
import { element } from '../page/frame';
import type { Page } from '../page/page';
import { usualRange } from './field';
import { drawFieldChart, fieldHeight } from './field_drawing';
import type { FieldPicture } from './field_picture';
import { frameText } from './field_text';

const most = 6;

// Shown only while the page is printed.
export function strip(page: Page, picture: FieldPicture): HTMLElement {
  const made = element('div', 'strip keep');
  const times = stripTimes(page, picture);
  const gap = times.length > 1 ? times[1] - times[0] : 0;
  const row = element('div', 'strip-row');
  made.append(row, element('p', 'caption', `${times.length} frames about the highest crest, ${plainNumber(gap)} s apart, in the same colours.`));
  const range = usualRange(picture.largest);
  for (const time of times) {
    const box = element('div');
    row.append(box);
    const canvas = new StillCanvas(
      box,
      page.view,
      (width) => fieldHeight(page, width, 160, true),
      (ctx, width, height) => drawFieldChart(ctx, width, height, { page, picture, time, kind: 'diverging', range, plain: true }),
    );
    canvas.label(frameText(picture, time));
  }
  return made;
}

// Six frames over about one wave period, of those that the page has.
function stripTimes({ data }: Page, picture: FieldPicture): number[] {
  const crest = data.field!.stills.find((still) => still.key === 'crest');
  const middle = picture.frameAt(crest ? crest.t : picture.start);
  const apart = Math.max(1, Math.round((peakPeriod(data.summary.spectrum) / most) * picture.rate));
  const count = Math.min(most, Math.floor((picture.frames - 1) / apart) + 1);
  const first = Math.min(Math.max(middle - 2 * apart, 0), picture.frames - 1 - (count - 1) * apart);
  return Array.from({ length: count }, (_, i) => picture.timeOf(first + i * apart));
}

// s, of the most energetic waves.
function peakPeriod(spectrum: Page['data']['summary']['spectrum']): number {
  let best = -1;
  (spectrum?.made ?? []).forEach((density, i) => {
    if (density !== null && (best < 0 || density > spectrum!.made[best]!)) best = i;
  });
  const peak = best < 0 ? NaN : spectrum!.f[best];
  return peak > 0 ? 1 / peak : 1;
}
