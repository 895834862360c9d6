// The controls of the schedule page.
#pragma once

#define schedule_page_dialog 1500
#define schedule_page_Option11 1501
#define schedule_page_Option4 1502

// new_schedule: a schedule is built
#define schedule_page_jobs_label 1510
#define schedule_page_Lista_Schedule 1511
#define schedule_page_perform_this_job 1512
#define schedule_page_Combo1 1513
#define schedule_page_days_label 1514
#define schedule_page_option_day1 1515  // Sunday, to option_day1 + 6
#define schedule_page_day_label 1522
#define schedule_page_monthly_day 1523
#define schedule_page_day_of_month 1524
#define schedule_page_date_label 1525
#define schedule_page_once_date 1526
#define schedule_page_at_time 1527
#define schedule_page_start_time 1528
#define schedule_page_whencomp 1529
#define schedule_page_items_loaded 1530
#define schedule_page_only_once 1531
#define schedule_page_save_label 1532
#define schedule_page_schedule_save_as 1533
#define schedule_page_schedule_save_changes 1534

// old_schedule: the list, and what is known of the selected one and of the next one
#define schedule_page_schedule_lista 1550
#define schedule_page_info 1551
#define schedule_page_next_run_label 1552
#define schedule_page_next_run 1553
#define schedule_page_last_run_label 1554
#define schedule_page_last_run 1555
#define schedule_page_view_log 1556
#define schedule_page_upcoming 1557
#define schedule_page_no_scheduled_items 1558
#define schedule_page_upcoming_schedule12 1559
#define schedule_page_will_start_label 1560
#define schedule_page_will_start_in 1561
#define schedule_page_Command6 1562
