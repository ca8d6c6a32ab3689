#include "database/postgresql/foundation.h"

namespace ebtq::db {

const char *dateFunctionsScript()
{
    return R"sql(
create or replace function ebtq.year(d timestamp) returns integer language sql immutable parallel safe
return date_part('year', d)::integer;
create or replace function ebtq.month(d timestamp) returns integer language sql immutable parallel safe
return date_part('month', d)::integer;
create or replace function ebtq.day(d timestamp) returns integer language sql immutable parallel safe
return date_part('day', d)::integer;
create or replace function ebtq.hour(d timestamp) returns integer language sql immutable parallel safe
return date_part('hour', d)::integer;
create or replace function ebtq.minute(d timestamp) returns integer language sql immutable parallel safe
return date_part('minute', d)::integer;
create or replace function ebtq.second(d timestamp) returns integer language sql immutable parallel safe
return floor(date_part('second', d))::integer;
create or replace function ebtq.datevalue(d timestamp) returns timestamp language sql immutable parallel safe
return date_trunc('day', d);

create or replace function ebtq.date() returns timestamp language sql stable parallel safe
return date_trunc('day', statement_timestamp()::timestamp);
create or replace function ebtq.now() returns timestamp language sql stable parallel safe
return date_trunc('second', statement_timestamp()::timestamp);

create or replace function ebtq.datetext(d timestamp) returns text language sql stable parallel safe
return to_char(d, case when d = date_trunc('day', d) then 'YYYY-FMMM-FMDD'
    else 'YYYY-FMMM-FMDD FMHH24:MI:SS' end);

create or replace function ebtq.cdate(t text) returns timestamp
language plpgsql immutable strict parallel safe as $$
declare
    -- Year-month-day, year/month/day or month/day/year; hours, minutes, seconds and AM or PM behind.
    p text[] := regexp_match(t, '^\s*([0-9]{1,4})([-/])([0-9]{1,2})\2([0-9]{1,4})(?: +([0-9]{1,2}):([0-9]{1,2})'
        '(?::([0-9]{1,2}))?\s*([AaPp][Mm])?)?\s*$');
    isyearfirst boolean := p[1]::integer >= 100;
    y integer := case when isyearfirst then p[1] when p[2] = '/' then p[4] end;
    m integer := case when isyearfirst then p[3] else p[1] end;
    d integer := case when isyearfirst then p[4] else p[3] end;
    h integer := coalesce(p[5], '0');
    n integer := coalesce(p[6], '0');
    s integer := coalesce(p[7], '0');
    good boolean := p is not null and y between 100 and 9999 and m between 1 and 12 and d >= 1 and n <= 59
        and s <= 59 and h <= 23 and (p[8] is null or h between 1 and 12);
begin
    if good then
        good := d <= date_part('day', make_date(y, m, 1) + interval '1 month' - interval '1 day');
    end if;
    if good is not true then
        raise exception using errcode = 'EB001', message = '“' || pg_catalog.left(t, 24) || '”不是日期，不能转换';
    end if;
    if p[8] is not null then
        h := h % 12 + case when lower(p[8] collate "default") = 'pm' then 12 else 0 end;
    end if;
    return make_timestamp(y, m, d, h, n, s);
end $$;

create or replace function ebtq.within_calendar(d timestamp) returns timestamp
language plpgsql immutable strict parallel safe as $$
begin
    if date_part('year', d) not between 100 and 9999 then
        raise exception using errcode = 'EB001', message = '日期超出范围';
    end if;
    return d;
end $$;

create or replace function ebtq.fail_interval(written text) returns integer
language plpgsql immutable strict parallel safe as $$
begin
    raise exception using errcode = 'EB001', message = '日期间隔“' || pg_catalog.left(btrim(written), 24)
        || '”有误，应为 yyyy、q、m、w、ww、d、h、n 或 s';
end $$;

create or replace function ebtq.dateadd(part text, count double precision, d timestamp) returns timestamp
language plpgsql immutable strict parallel safe as $$
declare
    many integer := greatest(least(trunc(count), 1e6), -1e6);
    moved timestamp;
begin
    case lower(btrim(part) collate "default")
        when 'yyyy' then moved := d + make_interval(years => many);
        when 'q' then moved := d + make_interval(months => 3 * many);
        when 'm' then moved := d + make_interval(months => many);
        when 'w', 'd', 'y' then
            moved := d + make_interval(days => greatest(least(trunc(count), 4e6), -4e6)::integer);
        when 'ww' then moved := d + make_interval(days => 7 * many);
        when 'h' then moved := d + make_interval(hours => many);
        when 'n' then moved := d + make_interval(mins => many);
        when 's' then moved := d + make_interval(secs => greatest(least(trunc(count), 4e11), -4e11));
        else perform ebtq.fail_interval(part);
    end case;
    return ebtq.within_calendar(moved);
end $$;

-- Julian days, so that nothing is negative.
create or replace function ebtq.days_of(d timestamp) returns bigint language sql immutable parallel safe
return d::date - date '2000-01-01' + 2451545;
create or replace function ebtq.seconds_of(d timestamp) returns bigint language sql immutable parallel safe
return ebtq.days_of(d) * 86400 + floor(date_part('epoch', d::time))::bigint;
create or replace function ebtq.months_of(d timestamp) returns bigint language sql immutable parallel safe
return ebtq.year(d) * 12 + ebtq.month(d) - 1;

create or replace function ebtq.datediff(part text, since timestamp, till timestamp) returns bigint
language plpgsql immutable strict parallel safe as $$
begin
    case lower(btrim(part) collate "default")
        when 'yyyy' then return ebtq.year(till) - ebtq.year(since);
        when 'q' then return ebtq.months_of(till) / 3 - ebtq.months_of(since) / 3;
        when 'm' then return ebtq.months_of(till) - ebtq.months_of(since);
        when 'w' then return (ebtq.days_of(till) - ebtq.days_of(since)) / 7;
        when 'ww' then return (ebtq.days_of(till) + 1) / 7 - (ebtq.days_of(since) + 1) / 7;
        when 'd', 'y' then return ebtq.days_of(till) - ebtq.days_of(since);
        when 'h' then return ebtq.seconds_of(till) / 3600 - ebtq.seconds_of(since) / 3600;
        when 'n' then return ebtq.seconds_of(till) / 60 - ebtq.seconds_of(since) / 60;
        when 's' then return ebtq.seconds_of(till) - ebtq.seconds_of(since);
        else return ebtq.fail_interval(part);
    end case;
end $$;

create or replace function ebtq.daysbetween(till timestamp, since timestamp) returns double precision
language sql immutable parallel safe
return (ebtq.seconds_of(till) - ebtq.seconds_of(since))::double precision / 86400;

create or replace function ebtq.adddays(d timestamp, count double precision) returns timestamp
language plpgsql immutable strict parallel safe as $$
declare
    seconds double precision := count * 86400;
begin
    if pg_catalog.abs(seconds) > 4e11 then
        raise exception using errcode = 'EB001', message = '日期超出范围';
    end if;
    return ebtq.within_calendar(d + make_interval(secs => trunc(seconds + sign(seconds) * 0.5)));
end $$;
)sql";
}

} // namespace ebtq::db
