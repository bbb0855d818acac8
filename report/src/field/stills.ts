// Two moments of the run in more detail: the highest crest and the steepest slope. On paper also
// the frames about the highest crest, in place of the animation.
import type { Still } from '../data/data';
import { placeText, timeText } from '../data/words';
import { lengthText, plainNumber } from '../drawing/axis_ticks';
import { StillCanvas } from '../drawing/still_canvas';
import { button, chartFrame, element } from '../page/frame';
import type { Page, Part } from '../page/page';
import { usualRange } from './field';
import { drawFieldChart, fieldHeight } from './field_drawing';
import { FieldPicture } from './field_picture';
import { frameText } from './field_text';
import { strip } from './strip';

const names: Record<Still['key'], string> = { crest: 'Highest crest', steepness: 'Steepest slope' };

export const stillsPart: Part = async (page: Page) => {
  const { field } = page.data;
  if (!field?.stills.length) return null;
  const picture = await FieldPicture.load(field);
  const frame = chartFrame({ id: 'stills', title: 'Extremes of the water surface', caption: detailText(field.stills[0]) });
  const pair = element('div', 'pair');
  for (const still of field.stills) pair.append(await figure(page, still, picture));
  frame.body.append(pair, strip(page, picture));
  return frame.section;
};

async function figure(page: Page, still: Still, field: FieldPicture): Promise<HTMLElement> {
  const picture = await FieldPicture.ofStill(still, page.data.field!);
  const made = chartFrame({
    id: `still-${still.key}`,
    title: names[still.key],
    caption: '',
    png: () => canvas.picture(),
  });
  const { time, kind, range } = { time: still.t, kind: 'diverging' as const, range: usualRange(field.largest) };
  const canvas = new StillCanvas(
    made.body,
    page.view,
    (width) => fieldHeight(page, width, 420),
    (ctx, width, height) => drawFieldChart(ctx, width, height, { page, picture, time, kind, range, mark: still.at }),
  );
  canvas.label(`${text(still)} ${frameText(picture, time)}`);
  const kept = still.t >= field.start - 0.5 / field.rate && still.t <= field.end + 0.5 / field.rate;
  if (kept) {
    made.tools.prepend(
      button('Show in the field', `Show ${timeText(still.t, field.rate)} in the field`, () => {
        page.view.set({ playing: false, time: still.t });
        document.getElementById('field')?.scrollIntoView({ block: 'nearest' });
      }),
    );
  }
  made.setCaption(`${text(still)} The ring marks it.${kept ? '' : ' The field of this page does not reach to this time.'}`);
  return made.section;
}

function detailText({ x, y }: Still): string {
  return `Single frames with ${x.count} × ${y.count} points, in the colours of the field.`;
}

// "Highest crest: 200 mm at 32.0 s, x 6.00 m, y 10.00 m."
function text(still: Still): string {
  const value = still.key === 'crest' ? lengthText(still.value) : `${plainNumber(still.value)} (rise over run)`;
  return `${names[still.key]}: ${value} at ${still.t.toFixed(2)} s, ${placeText(still.at.x, still.at.y)}.`;
}
